#include "play/frmFinished.h"

#include <QLabel>
#include <QScreen>

#include "model/basTiles.h"
#include "platform/DensePicture.h"
#include "platform/Program.h"
#include "platform/Twips.h"
#include "play/BesideShape.h"
#include "play/Option.h"
#include "play/frmMain.h"
#include "play/frmOpen.h"

namespace {

void addLine(QWidget* parent, double y, const QColor& colour) {
  auto* line = new QWidget(parent);
  line->setAutoFillBackground(true);
  QPalette palette;
  palette.setColor(QPalette::Window, colour);
  line->setPalette(palette);
  Twips::place(*line, -60, y, 8060, 15);
}

void addText(QWidget* parent, const char* name, const QString& text, double points, double left,
             double top, double width, double height) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  QFont font = Form::ControlFont(*label, points);
  font.setBold(true);
  label->setFont(font);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  Twips::place(*label, left, top, width, height);
}

}  // namespace

frmFinished::frmFinished(PlayWindows& windows)
    : Form({.title = "Congratulations!",
            .border = Border::FixedDialog,
            .client = {5988, 4260},
            .back = {192, 192, 255}}),
      windows_(windows) {}

void frmFinished::BuildControls() {
  buildPicture();
  buildOptions();
}

void frmFinished::buildPicture() {
  auto* imgWayToGo = new QLabel(Client());
  imgWayToGo->setObjectName("imgWayToGo");
  imgWayToGo->setAccessibleName("A picture for the winner");
  imgWayToGo->setScaledContents(true);
  imgWayToGo->setPixmap(QPixmap::fromImage(densePicture("waytogo.png")));
  Twips::place(*imgWayToGo, 0, 0, 6000, 3000);
  addText(Client(), "lblSolve", "Congratulations!  You have solved the puzzle! ", 12, 1380, 1500,
          3495, 615);
  addText(Client(), "Label1", "Please choose an option below.", 10, 1320, 2340, 3495, 615);
  addLine(Client(), 3000, QColor(128, 128, 255));
  addLine(Client(), 3015, Qt::white);
}

void frmFinished::buildOptions() {
  addOption("retry", "Redo this puzzle", "Play the same puzzle again", 480, 180,
            &frmFinished::imgRetry_Click);
  addOption("open", "Another puzzle", "Choose another puzzle", 1980, 1620,
            &frmFinished::imgOpen_Click);
  addOption("edit", "Create/edit puzzles", "Make puzzles of your own", 3420, 3120,
            &frmFinished::imgEdit_Click);
  addOption("quit", "Exit Quinzolith", "Leave the game", 4980, 4620, &frmFinished::imgQuit_Click);
}

void frmFinished::addOption(const QString& name, const QString& caption, const QString& hint,
                            double pictureLeft, double labelLeft, void (frmFinished::*action)()) {
  auto* option = new Option(Client(), name, caption, hint);
  option->placePicture(pictureLeft, 3180);
  option->placeLabel(labelLeft, 3660, 1215, name == "retry" ? 495 : 435);
  QObject::connect(option, &Option::clicked, option, [this, action] { (this->*action)(); });
}

void frmFinished::Form_Load() {
  // A key still typed for mirroring must choose nothing: no option has the focus at first.
  Client()->setFocus();
  firstMoment_ = new FirstMoment(Window());
  if (Program::ColorDepth >= Program::kDeepColour) return;
  const QPixmap fewColours = QPixmap::fromImage(densePicture("waytogo256.bmp"));
  if (!fewColours.isNull()) Client()->findChild<QLabel*>("imgWayToGo")->setPixmap(fewColours);
}

void frmFinished::Form_Resize() {
  if (Window()->isVisible() || !windows_.Main->Loaded()) return;
  const QWidget& play = *windows_.Main->Window();
  // Its own frame is not known yet, but that of the play window is.
  const QSize frame = play.frameGeometry().size() - play.size();
  const QRect screen = play.screen()->availableGeometry();
  Window()->move(besideShape(Window()->size() + frame, windows_.Main->ShapeOnScreen(), screen));
}

void frmFinished::imgRetry_Click() {
  basTiles::ReloadPuzzle();
  Unload();
}

void frmFinished::imgOpen_Click() {
  basTiles::ReloadPuzzle();
  Unload();
  windows_.Open->fEdit = false;
  windows_.Open->ShowModal(windows_.Main);
}

void frmFinished::imgEdit_Click() {
  closePlayWindow();
  if (windows_.ShowEditor) windows_.ShowEditor();
}

void frmFinished::imgQuit_Click() {
  closePlayWindow();
}

void frmFinished::closePlayWindow() {
  Unload();
  windows_.Main->UnloadFromDialog();
}
