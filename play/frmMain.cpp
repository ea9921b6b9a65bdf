#include "play/frmMain.h"

#include "board/BoardBackground.h"
#include "model/basTiles.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "play/frmFinished.h"
#include "play/frmOpen.h"
#include "services/basHTMLHelp.h"
#include "services/basKelvoMusic.h"

namespace {

constexpr int kHelpTopic = 1200;
constexpr std::int16_t kBoardSize = 14;
constexpr std::int16_t kTrayWidth = 9;
constexpr std::int16_t kTrayHeight = 36;
constexpr int kDeepColour = 16;  // bits per pixel from which no palette is needed

Form::Design design() {
  Form::Design d;
  d.title = Program::kTitle;
  d.client = QSizeF(10044, 7500);
  d.back = QColor(192, 192, 255);
  d.helpContext = kHelpTopic;
  d.maximized = true;
  return d;
}

/// Background everywhere but inside the one-cell ring.
void layOutGrid(PENTOGRID& grid, std::int16_t width, std::int16_t height) {
  grid.SetGridSize(width, height);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) {
      const bool ring = x == 0 || y == 0 || x == width - 1 || y == height - 1;
      if (ring)
        grid.SetGridBackground(x, y);
      else
        grid.SetGridEmpty(x, y);
    }
  }
}

}  // namespace

frmMain::frmMain(PlayWindows& windows) : Form(design()), windows_(windows) {
  cdlgOpen_.title = "Open Puzzle";
  cdlgOpen_.filterName = "Pentomino Puzzles (*.qzl)";
  cdlgOpen_.defaultExtension = "qzl";
}

frmMain::~frmMain() = default;

PENTOWINDOW* frmMain::newBoardControl(const char* name) {
  auto* control = new PENTOWINDOW(Client());
  control->setObjectName(name);
  PropertyBag layout;
  layout.WriteProperty("BackTexture", boardBackground(Client()->devicePixelRatioF()), QImage());
  control->ReadProperties(layout);
  return control;
}

void frmMain::BuildControls() {
  PentoPanel = newBoardControl("PentoPanel");
  PentoPanel->setAccessibleName("Tray with the loose pieces");
  Grid = newBoardControl("Grid");
  Grid->setAccessibleName("Board");
  fraCover_ = new QFrame(Client());
  fraCover_->setObjectName("fraCover");
  fraCover_->setAutoFillBackground(true);
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
  layOutGrid(BoardGrid_, kBoardSize, kBoardSize);
  Grid->Grid(&BoardGrid_);
  layOutGrid(TrayGrid_, kTrayWidth, kTrayHeight);
  PentoPanel->Grid(&TrayGrid_);
  basTiles::targets.Board = Grid;
  basTiles::targets.Tray = PentoPanel;
}

void frmMain::Form_Activate() {
  if (fActivated_) return;
  if (Program::ColorDepth < kDeepColour) mnuView_->menuAction()->setVisible(false);
  basKelvoMusic::InitSound(*musicCorrect_, *musicWrong_, *musicSong_);
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
  if (Program::ColorDepth < kDeepColour) showCover();
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
