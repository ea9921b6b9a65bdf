#include <QShortcut>

#include "board/BoardLayout.h"
#include "edit/PictureButton.h"
#include "edit/frmEdit.h"
#include "model/PuzzleFormat.h"
#include "platform/Program.h"
#include "platform/Twips.h"

namespace {

// Lengths in twips.
constexpr double kColumns[] = {120, 1260, 2400};
constexpr double kRows[] = {300, 1080, 1860, 2640};
constexpr QSizeF kPieceButton(1095, 720);
constexpr QSizeF kSquareButton(640, 640);
constexpr double kGap = 120;  // between the buttons and the board, and above and below the board
constexpr double kBoardLeft = kColumns[2] + 1095 + kGap;
constexpr QSizeF kSmallest(6600, 5040);  // shows every button, and a board with tiles of 12 pixels
constexpr int kBoardTiles = PuzzleFormat::kBoardSize + 2;  // and one of margin on each side

}  // namespace

void frmEdit::BuildControls() {
  buildPieceButtons();
  buildShiftButtons();
  Grid = BoardLayout::newControl(Client(), "Grid", "Board");
  Grid->Float = [this](PentoRef&) {
    fFileChanged = true;
    hint_.begin(*Grid);
  };
  Grid->Drop = [this] {
    fFileChanged = true;
    hint_.end();
  };
  Hand::of(*Grid).serve(*Grid, nullptr);
  Grid->setFocus();
  addKey(Qt::Key_F6, [this] { switchBetweenButtonsAndBoard(); });
  addKey(Qt::Key_Escape, [this] {
    if (Grid->Floating()) Grid->TakeBack(nullptr);
  });
  fraCover_ = BoardLayout::newCover(Client());
  buildFileMenu();
  buildHelpMenu();
}

void frmEdit::addKey(Qt::Key key, const std::function<void()>& action) {
  auto* shortcut = new QShortcut(QKeySequence(key), Window());
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, Window(), action);
}

/// Keys serve the buttons, or the hand on the board. A pointer that lies over the board by chance
/// is not yet a hand that keys serve.
void frmEdit::switchBetweenButtonsAndBoard() {
  Hand& hand = Hand::of(*Grid);
  const bool onBoard = Grid->focusProxy()->hasFocus() && hand.keys().underHand() && hand.marked();
  if (onBoard)
    Client()->findChild<QWidget*>("cmdPento0")->setFocus(Qt::TabFocusReason);
  else
    hand.toBoard();
}

PictureButton* frmEdit::addButton(const QString& object, const QString& picture,
                                  const QString& name, const QString& hint, const QRectF& place) {
  auto* button = new PictureButton(Client(), picture, name, hint);
  button->setObjectName(object);
  Twips::place(*button, place.x(), place.y(), place.width(), place.height());
  return button;
}

void frmEdit::buildPieceButtons() {
  for (std::int16_t i = 0; i < PENTO::kTypes; ++i) {
    const QPointF corner(kColumns[i % 3], kRows[i / 3]);
    const QString name = QString("Piece %1").arg(QChar(pentominoLetter(i)));
    auto* button = addButton(QString("cmdPento%1").arg(i), QString("button-%1").arg(i), name,
                             "New p" + name.mid(1), QRectF(corner, kPieceButton));
    QObject::connect(button, &QPushButton::clicked, button, [this, i] { cmdPento_Click(i); });
  }
}

void frmEdit::buildShiftButtons() {
  const auto add = [this](const char* object, const char* picture, const char* name,
                          const char* hint, const QPointF& corner, auto action) {
    auto* button = addButton(object, picture, name, hint, QRectF(corner, kSquareButton));
    QObject::connect(button, &QPushButton::clicked, button, action);
  };
  add("cmdUp", "arrow-up", "Shift up", "Move all pieces up", {840, 3540},
      [this] { Grid->MoveUp(); });
  add("cmdLeft", "arrow-left", "Shift left", "Move all pieces to the left", {120, 3960},
      [this] { Grid->MoveLeft(); });
  add("cmdRight", "arrow-right", "Shift right", "Move all pieces to the right", {1560, 3960},
      [this] { Grid->MoveRight(); });
  add("cmdDown", "arrow-down", "Shift down", "Move all pieces down", {840, 4260},
      [this] { Grid->MoveDown(); });
  add("cmdTrash", "trash", "Throw away", "Throw the floating piece away", {2760, 3960}, [this] {
    Grid->RemoveFloatingPento();
    hint_.end();
  });
}

void frmEdit::Form_Resize() {
  BoardLayout::cover(*fraCover_);
  if (Minimized()) return;
  Client()->setMinimumSize(Twips::toPixels(kSmallest, *Client()));
  layOutBoard();
  hint_.place(*Grid);
  if (!fActivated_ && Program::ColorDepth == Program::kPaletteDepth) Grid->BackTexture(QImage());
  fraCover_->hide();
}

void frmEdit::layOutBoard() {
  const double width = ClientWidth() - kBoardLeft, height = ClientHeight() - 2 * kGap;
  Grid->Redraw = false;
  Twips::place(*Grid, kBoardLeft, kGap, width, height);
  Grid->Redraw = true;
  BoardLayout::fitTiles(*Grid, width, height, kBoardTiles, kBoardTiles);
}
