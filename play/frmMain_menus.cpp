#include <QActionGroup>
#include <QMenuBar>

#include "platform/Program.h"
#include "play/frmMain.h"
#include "play/frmSplash.h"
#include "services/basHTMLHelp.h"
#include "services/basKelvoMusic.h"

namespace {

constexpr int kDeepColour = 16;
constexpr int kSolveTopic = 1200;

/// A menu item under the name by which it is known.
template <class Action>
QAction* add(QMenu* menu, const char* name, const QString& caption, Action action) {
  QAction* item = menu->addAction(caption);
  item->setObjectName(name);
  item->setMenuRole(QAction::NoRole);
  QObject::connect(item, &QAction::triggered, menu, action);
  return item;
}

void addSeparator(QMenu* menu, const char* name) {
  menu->addSeparator()->setObjectName(name);
}

QMenu* addMenu(QMenuBar* bar, const char* name, const QString& caption) {
  QMenu* menu = bar->addMenu(caption);
  menu->setObjectName(name);
  return menu;
}

}  // namespace

void frmMain::buildMenus() {
  buildFileMenu();
  buildSoundMenu();
  buildViewMenu();
  buildHelpMenu();
}

void frmMain::buildFileMenu() {
  QMenu* file = addMenu(MenuBar(), "mnuFile", "File");
  add(file, "mnuFileOpen", "Select puzzle...", [this] {
    mnuFileOpen_Click();
  })->setShortcut(Qt::Key_F2);
  add(file, "mnuOpenFile", "Open user puzzle...", [this] { OpenFile(); })->setVisible(false);
  addSeparator(file, "mnuViewSep1");
  add(file, "mnuViewEdit", "Edit...", [this] { mnuViewEdit_Click(); });
  addSeparator(file, "mnuFileSep1");
  add(file, "mnuFileClose", "Exit", [this] { Unload(); });
}

void frmMain::buildSoundMenu() {
  QMenu* sound = addMenu(MenuBar(), "mnuSound", "Sound");
  mnuSoundOn_ = add(sound, "mnuSoundOn", "Sound on", [this] { mnuSound_Click(true); });
  mnuSoundOff_ = add(sound, "mnuSoundOff", "Sound off", [this] { mnuSound_Click(false); });
  auto* either = new QActionGroup(sound);
  for (QAction* item : {mnuSoundOn_.data(), mnuSoundOff_.data()}) {
    item->setCheckable(true);
    either->addAction(item);
  }
}

void frmMain::buildViewMenu() {
  mnuView_ = addMenu(MenuBar(), "mnuView", "View");
  int index = 0;
  for (const char* caption : {"Solid", "Rough", "Swirl", "Bricks", "Grass"})
    add(mnuView_, qPrintable(QString("mnuTexture%1").arg(index++)), caption, [] {});
  mnuView_->menuAction()->setVisible(false);
}

void frmMain::buildHelpMenu() {
  using namespace basHTMLHelp;
  QMenu* help = addMenu(MenuBar(), "mnuHelp", "Help");
  add(help, "mnuHelpContents", "Contents...", [this] { showHelp(HH_DISPLAY_TOPIC, 0); });
  add(help, "mnuHelpSolve", "How to solve puzzles...",
      [this] { showHelp(HH_HELP_CONTEXT, kSolveTopic); });
  addSeparator(help, "mnuHelpSep");
  add(help, "mnuHelpAbout", "About...", [this] { mnuHelpAbout_Click(); });
}

void frmMain::mnuFileOpen_Click() {
  Grid->HideFloatingPento();
  PentoPanel->HideFloatingPento();
  if (Program::ColorDepth < kDeepColour) showCover();
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

void frmMain::showHelp(int command, int topic) {
  basHTMLHelp::HtmlHelpA(Window(), Program::HelpFile, command, topic);
}

void frmMain::mnuHelpAbout_Click() {
  if (Program::ColorDepth < kDeepColour) showCover();
  windows_.Splash->ShowModal(this);
  if (Program::ColorDepth >= kDeepColour || !Loaded()) return;
  dropBackgrounds();
  fraCover_->hide();
}
