#include "edit/frmEdit.h"

#include <QFileInfo>
#include <QStandardPaths>

#include "board/BoardLayout.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "platform/Program.h"

namespace fs = std::filesystem;

namespace {

Form::Design design() {
  Form::Design d;
  d.title = "Quinzolith - Edit Mode";
  d.client = QSizeF(9108, 6516);
  d.back = QColor(192, 192, 255);
  return d;
}

/// Where puzzles are saved: the user's puzzle folder, or the user's documents where there is none
/// or nothing may be written.
fs::path startFolder() {
  const QFileInfo folder(QString::fromStdU16String(Program::UserPath.u16string()));
  if (folder.isDir() && folder.isWritable()) return Program::UserPath;
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdU16String();
}

}  // namespace

frmEdit::frmEdit() : Form(design()) {
  cdlgOpen_.title = "Open Puzzle";
  cdlgOpen_.filterName = "Pentomino Puzzles (*.qzl)";
  cdlgOpen_.defaultExtension = "qzl";
  cdlgOpen_.overwritePrompt = true;
}

void frmEdit::Form_Load() {
  fFileChanged = false;
  RecentFiles.emplace();
  RecentFiles->MenuCount(kRecentFiles);
  RecentFiles->MenuForm(*this);
  RecentFiles->Name("Recent Puzzles");
  fActivated_ = false;
  BoardGrid_ = PENTOGRID();
  BoardLayout::ringGrid(BoardGrid_, PuzzleFormat::kBoardSize, PuzzleFormat::kBoardSize);
  Grid->Grid(&BoardGrid_);
  basTiles::targets.Editor = Grid;
  basTiles::AfterSave = [this](const fs::path& file) {
    fFileChanged = false;
    RecentFiles->AddRecent(file.string());
  };
}

void frmEdit::Form_Activate() {
  if (fActivated_) return;
  basTiles::CurrentFileName.clear();
  fActivated_ = true;
  if (SetChooserEdit) SetChooserEdit(true);
  fFileChanged = false;
  mnuFileNew_Click();
  cdlgOpen_.folder = startFolder();
}

void frmEdit::Form_Unload(bool& Cancel) {
  Cancel = !CheckSaveStatus();
  if (Cancel) return;
  fActivated_ = false;
  basTiles::targets.Editor = nullptr;
  basTiles::AfterSave = nullptr;
}

void frmEdit::cmdPento_Click(std::int16_t Index) {
  if (BoardGrid_.PentoCollection().Count() >= PuzzleFormat::kMostPieces) {
    Dialogs::message("The puzzle can only contain 15 pieces.", Dialogs::Icon::Exclamation);
    return;
  }
  const auto piece = std::make_shared<PENTO>();
  piece->PentoType(Index);
  Grid->FloatingPento(piece);
}
