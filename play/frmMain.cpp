#include "play/frmMain.h"

#include "board/BoardLayout.h"
#include "model/PuzzleFormat.h"
#include "model/Random.h"
#include "model/basTiles.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "play/frmFinished.h"
#include "play/frmOpen.h"
#include "services/PuzzleDialog.h"
#include "services/basKelvoMusic.h"

frmMain::frmMain(PlayWindows& windows)
    : Form({.title = Program::kTitle,
            .client = {10044, 7500},
            .back = {192, 192, 255},
            .maximized = true}),
      windows_(windows),
      cdlgOpen_(puzzleDialog()) {}

frmMain::~frmMain() = default;

void frmMain::BuildControls() {
  PentoPanel = BoardLayout::newControl(Client(), "PentoPanel", "Tray with the loose pieces");
  Grid = BoardLayout::newControl(Client(), "Grid", "Board");
  fraCover_ = BoardLayout::newCover(Client());
  connectBoards();
  Hand::of(*Grid).serve(*Grid, PentoPanel);
  PentoPanel->setFocus();
  buildMenus();

  musicCorrect_ = makeTunePlayer();
  musicWrong_ = makeTunePlayer();
  musicSong_ = makeTunePlayer();
  musicCorrect_->Done = [] { basKelvoMusic::fCorrectDone = true; };
  musicWrong_->Done = [] { basKelvoMusic::fWrongDone = true; };
  musicSong_->Done = [] { basKelvoMusic::fSongDone = true; };
}

void frmMain::Form_Load() {
  fActivated_ = false;
  RandomNumbers::start(Program::Timer());
  BoardLayout::ringGrid(BoardGrid_, PuzzleFormat::kBoardSize, PuzzleFormat::kBoardSize);
  Grid->Grid(&BoardGrid_);
  BoardLayout::ringGrid(TrayGrid_, kTrayWidth, kTrayHeight);
  PentoPanel->Grid(&TrayGrid_);
  basTiles::targets.Board = Grid;
  basTiles::targets.Tray = PentoPanel;
}

void frmMain::Form_Activate() {
  if (fActivated_) return;
  if (Program::ColorDepth < Program::kDeepColour) mnuView_->menuAction()->setVisible(false);
  basKelvoMusic::InitSound(*musicCorrect_, *musicWrong_, *musicSong_);
  if (!Loaded()) return;  // opening tunes lets events run
  cdlgOpen_.folder = puzzleFolder();
  showSoundSwitch();
  basTiles::LoadPuzzle(Program::installationFolder() / "puzzles" / "rocket.qzl", false);
  basTiles::CurrentFileName.clear();
  fActivated_ = true;
  Refresh();
  waitForChooser();
  fCancelLoad = false;
}

/// Opens the chooser, waits for it, and uncovers the boards unless it has closed this window.
void frmMain::waitForChooser() {
  carryHint_.end();
  hint_.end();
  fCancelLoad = false;
  windows_.Open->fEdit = false;
  windows_.Open->ShowModal(this);
  if (!fCancelLoad && fraCover_) fraCover_->hide();
}

void frmMain::Form_Unload(bool&) {
  hint_.end();
  basTiles::targets.Board = nullptr;
  basTiles::targets.Tray = nullptr;
  basKelvoMusic::CloseSound();
  musicCorrect_.reset();
  musicWrong_.reset();
  musicSong_.reset();
}

void frmMain::connectBoards() {
  relay(*Grid, *PentoPanel);
  relay(*PentoPanel, *Grid);
  Grid->Drop = [this] { Grid_Drop(); };
  Grid->DropError = [] { basKelvoMusic::PlayWrong(); };
}

/// Lets a piece that is picked up in one control travel to the other.
void frmMain::relay(PENTOWINDOW& from, PENTOWINDOW& to) {
  from.Float = [this, &to](PentoRef& P) {
    to.FloatingPento(P);
    to.HideFloatingPento();
    carryHint_.begin(*Grid);
    if (&to != Grid) hint_.end();
  };
  from.Capture = [&to] { to.HideFloatingPento(); };
  from.Uncapture = [&to] { to.ShowFloatingPento(); };
  from.Drop = [this, &to] {
    to.RemoveFloatingPento();
    carryHint_.end();
  };
}

void frmMain::Grid_Drop() {
  PentoPanel->RemoveFloatingPento();
  carryHint_.end();
  hint_.end();
  if (Grid->EmptyCount() != 0) return;
  Grid->PaintAll();
  Hand::of(*Grid).say([] { return "Solved"; });
  basKelvoMusic::PlaySong();
  processPendingEvents();
  if (!Loaded()) return;
  if (Program::ColorDepth < Program::kDeepColour) showCover();
  fCancelLoad = false;
  windows_.Finished->ShowModal(this);
  if (!fCancelLoad && fraCover_) fraCover_->hide();
}

void frmMain::UnloadFromDialog() {
  fCancelLoad = true;
  Unload();
}

bool frmMain::OpenFile() {
  cdlgOpen_.fileName.clear();
  if (!cdlgOpen_.ShowOpen()) return false;
  if (basTiles::LoadPuzzle(cdlgOpen_.fileName, false)) return true;
  Refresh();
  Dialogs::message(basTiles::LastFileError, Dialogs::Icon::None);
  return false;
}
