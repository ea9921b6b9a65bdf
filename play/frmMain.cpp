#include "play/frmMain.h"

#include "board/BoardLayout.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "play/frmFinished.h"
#include "play/frmOpen.h"
#include "services/basKelvoMusic.h"

namespace {

Form::Design design() {
  Form::Design d;
  d.title = Program::kTitle;
  d.client = QSizeF(10044, 7500);
  d.back = QColor(192, 192, 255);
  d.maximized = true;
  return d;
}

}  // namespace

frmMain::frmMain(PlayWindows& windows) : Form(design()), windows_(windows) {
  cdlgOpen_.title = "Open Puzzle";
  cdlgOpen_.filterName = "Pentomino Puzzles (*.qzl)";
  cdlgOpen_.defaultExtension = "qzl";
}

frmMain::~frmMain() = default;

void frmMain::BuildControls() {
  PentoPanel = BoardLayout::newControl(Client(), "PentoPanel", "Tray with the loose pieces");
  Grid = BoardLayout::newControl(Client(), "Grid", "Board");
  fraCover_ = BoardLayout::newCover(Client());
  connectBoards();
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
  Program::Randomize(Program::Timer());
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
  fCancelLoad = false;
  windows_.Open->fEdit = false;
  windows_.Open->ShowModal(this);
  if (!fCancelLoad && fraCover_) fraCover_->hide();
}

void frmMain::Form_Unload(bool&) {
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
  from.Float = [&to](PentoRef& P) {
    to.FloatingPento(P);
    to.HideFloatingPento();
  };
  from.Capture = [&to] { to.HideFloatingPento(); };
  from.Uncapture = [&to] { to.ShowFloatingPento(); };
  from.Drop = [&to] { to.RemoveFloatingPento(); };
}

void frmMain::Grid_Drop() {
  PentoPanel->RemoveFloatingPento();
  if (Grid->EmptyCount() != 0) return;
  Grid->PaintAll();
  basKelvoMusic::PlaySong();
  processPendingEvents();
  if (!Loaded()) return;
  if (Program::ColorDepth < Program::kDeepColour) showCover();
  fCancelLoad = false;
  windows_.Finished->ShowModal(this);
  if (!fCancelLoad && fraCover_) fraCover_->hide();
}

bool frmMain::OpenFile() {
  cdlgOpen_.fileName.clear();
  if (!cdlgOpen_.ShowOpen()) return false;
  if (basTiles::LoadPuzzle(cdlgOpen_.fileName, false)) return true;
  Refresh();
  Dialogs::message(basTiles::LastFileError, Dialogs::Icon::None);
  return false;
}
