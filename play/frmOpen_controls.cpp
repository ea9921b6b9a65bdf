#include <QStyle>

#include "drawing/Rounding.h"
#include "platform/LargeText.h"
#include "platform/Twips.h"
#include "play/frmOpen.h"
#include "services/basHTMLHelp.h"

namespace {

constexpr const char* kTabNames[] = {"Novice", "Easy", "Intermediate", "Expert", "Other"};

void addLine(QWidget* parent, double x, QPalette::ColorRole role) {
  auto* line = new QWidget(parent);
  line->setAutoFillBackground(true);
  line->setBackgroundRole(role);
  Twips::place(*line, x, 0, 15, 3960);
}

/// The style draws the box at a size of its own, which large text would dwarf.
void enlargeIndicator(QCheckBox& box) {
  const double factor = LargeText::factor(box);
  if (factor == 1) return;
  const int size = nearest(box.style()->pixelMetric(QStyle::PM_IndicatorWidth) * factor);
  box.setStyleSheet(QString("QCheckBox::indicator { width: %1px; height: %1px; }").arg(size));
}

}  // namespace

frmOpen::frmOpen(PlayWindows& windows)
    : Form({.title = "Select Quinzolith Puzzle",
            .border = Border::FixedDialog,
            .client = {5412, 3960},
            .back = {228, 228, 240}}),
      windows_(windows) {}

void frmOpen::BuildControls() {
  buildTabs();
  addLine(Client(), 3960, QPalette::Dark);
  addLine(Client(), 3972, QPalette::Light);
  buildButtons();
  basHTMLHelp::ShowHelpOnF1(*this, basHTMLHelp::Topic::Chooser);
}

void frmOpen::buildTabs() {
  tabGames_ = new PuzzleTabs(Client());
  for (int tab = 0; tab < kTabs; ++tab) {
    auto* page = new QWidget(tabGames_);  // in the window from the start
    auto* list = new PuzzleList(page, QString("lvwPuzzles%1").arg(tab));
    list->setAccessibleName(QString("%1 puzzles").arg(kTabNames[tab]));
    QObject::connect(list, &PuzzleList::doubleClicked, list, [this] { cmdOk_Click(); });
    lvwPuzzles_.at(static_cast<std::size_t>(tab)) = list;
    if (tab == kOther) {
      auto* cmdCreate = new QPushButton("Create puzzles", page);
      cmdCreate->setObjectName("cmdCreate");
      cmdCreate->setFont(ControlFont(*cmdCreate));
      QObject::connect(cmdCreate, &QPushButton::clicked, cmdCreate, [this] { cmdCreate_Click(); });
      tabGames_->place(cmdCreate, 60, 420, 3612, 372);
      tabGames_->place(list, 60, 840, 3612, 2952);
    } else {
      tabGames_->place(list, 60, 360, 3612, 3432);
    }
    tabGames_->addTab(page, kTabNames[tab]);
  }
  Twips::place(*tabGames_, 60, 60, 3740, 3852);
}

QPushButton* frmOpen::addButton(const char* name, const QString& caption, double top,
                                void (frmOpen::*action)()) {
  auto* button = new QPushButton(caption, Client());
  button->setObjectName(name);
  button->setFont(ControlFont(*button));
  Twips::place(*button, 4140, top, 1095, 375);
  QObject::connect(button, &QPushButton::clicked, button, [this, action] { (this->*action)(); });
  return button;
}

void frmOpen::buildButtons() {
  cmdOk_ = addButton("cmdOk", "Ok", 60, &frmOpen::cmdOk_Click);
  cmdOk_->setDefault(true);
  addButton("cmdCancel", "Cancel", 540, &frmOpen::cmdCancel_Click);
  addButton("cmdBrowse", "Browse", 1380, &frmOpen::cmdBrowse_Click);
  chkEasy_ = new QCheckBox("Easy mode", Client());
  chkEasy_->setObjectName("chkEasy");
  chkEasy_->setFont(ControlFont(*chkEasy_));
  chkEasy_->setToolTip("The pieces lie in the tray turned the right way");
  Twips::place(*chkEasy_, 4140, 1980, 1275, 255);
  enlargeIndicator(*chkEasy_);
  QObject::connect(chkEasy_, &QCheckBox::clicked, chkEasy_,
                   [this] { fEasyChecked_ = chkEasy_->isChecked(); });
  addButton("cmdHelp", "Help", 3420, &frmOpen::cmdHelp_Click);
}
