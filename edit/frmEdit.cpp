#include "edit/frmEdit.h"

#include "board/BoardLayout.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "services/PuzzleDialog.h"

namespace fs = std::filesystem;

frmEdit::frmEdit()
    : Form({.title = "Quinzolith - Edit Mode", .client = {9108, 6516}, .back = {192, 192, 255}}),
      cdlgOpen_(puzzleDialog()) {
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
  cdlgOpen_.folder = puzzleFolder();
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
  hint_.begin(*Grid);
}
