#include <QShortcut>

#include "platform/Menus.h"
#include "platform/Program.h"
#include "play/frmMain.h"
#include "play/frmSplash.h"
#include "services/basHTMLHelp.h"
#include "services/basKelvoMusic.h"

void frmMain::buildMenus() {
  buildFileMenu();
  buildSoundMenu();
  buildViewMenu();
  buildHelpMenu();
}

void frmMain::buildFileMenu() {
  QMenu* file = Menus::addMenu(MenuBar(), "mnuFile", "File");
  Menus::addItem(file, "mnuFileOpen", "Select puzzle...", [this] {
    mnuFileOpen_Click();
  })->setShortcut(Qt::Key_F2);
  Menus::addItem(file, "mnuOpenFile", "Open user puzzle...", [this] {
    OpenFile();
  })->setVisible(false);
  Menus::addSeparator(file, "mnuViewSep1");
  Menus::addItem(file, "mnuViewEdit", "Edit...", [this] { mnuViewEdit_Click(); });
  Menus::addSeparator(file, "mnuFileSep1");
  Menus::addItem(file, "mnuFileClose", "Exit", [this] { Unload(); });
}

void frmMain::buildSoundMenu() {
  QMenu* sound = Menus::addMenu(MenuBar(), "mnuSound", "Sound");
  mnuSoundOn_ = Menus::addItem(sound, "mnuSoundOn", "Sound on", [this] { mnuSound_Click(true); });
  mnuSoundOff_ =
      Menus::addItem(sound, "mnuSoundOff", "Sound off", [this] { mnuSound_Click(false); });
  // A group of actions would draw dots instead of check marks.
  for (QAction* item : {mnuSoundOn_.data(), mnuSoundOff_.data()}) item->setCheckable(true);
}

void frmMain::buildViewMenu() {
  mnuView_ = Menus::addMenu(MenuBar(), "mnuView", "View");
  int index = 0;
  for (const char* caption : {"Solid", "Rough", "Swirl", "Bricks", "Grass"})
    Menus::addItem(mnuView_, qPrintable(QString("mnuTexture%1").arg(index++)), caption, [] {});
  mnuView_->menuAction()->setVisible(false);
}

void frmMain::buildHelpMenu() {
  basHTMLHelp::AddHelpMenu(*this, basHTMLHelp::Topic::Play, "mnuHelpSolve",
                           "How to solve puzzles...", [this] { mnuHelpAbout_Click(); });
  askForHintOnF3();
}

/// No item tells of it: the menus stay as they are known.
void frmMain::askForHintOnF3() {
  auto* f3 = new QShortcut(QKeySequence(Qt::Key_F3), Window());
  f3->setAutoRepeat(false);
  QObject::connect(f3, &QShortcut::activated, f3, [this] {
    if (fActivated_) hint_.askOrEnd(*Grid, *PentoPanel);
  });
}

void frmMain::mnuFileOpen_Click() {
  Grid->HideFloatingPento();
  PentoPanel->HideFloatingPento();
  if (Program::ColorDepth < Program::kDeepColour) showCover();
  waitForChooser();
}

void frmMain::mnuViewEdit_Click() {
  if (windows_.ShowEditor) windows_.ShowEditor();
  Unload();
}

void frmMain::mnuSound_Click(bool on) {
  basKelvoMusic::SetSound(on);
  showSoundSwitch();
}

void frmMain::showSoundSwitch() {
  mnuSoundOn_->setChecked(basKelvoMusic::SoundOn());
  mnuSoundOff_->setChecked(!basKelvoMusic::SoundOn());
}

void frmMain::mnuHelpAbout_Click() {
  if (Program::ColorDepth < Program::kDeepColour) showCover();
  windows_.Splash->ShowModal(this);
  if (Program::ColorDepth >= Program::kDeepColour || !Loaded()) return;
  dropBackgrounds();
  fraCover_->hide();
}
