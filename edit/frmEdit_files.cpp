// Opening and saving, and the question before changes are lost.
#include "edit/frmEdit.h"
#include "model/basTiles.h"

namespace fs = std::filesystem;

bool frmEdit::CheckSaveStatus() {
  if (!fFileChanged) return true;
  switch (Dialogs::askYesNoCancel(
      "The current file has changed.\r\nDo you want to save your changes?")) {
    case Dialogs::Answer::No:
      fFileChanged = false;  // given up, whatever becomes of the command that asked
      return true;
    case Dialogs::Answer::Cancel:
      return false;
    case Dialogs::Answer::Yes:
      break;
  }
  mnuFileSave_Click();
  return basTiles::fSaved;  // of the save before, when the dialog was cancelled
}

void frmEdit::mnuFileNew_Click() {
  if (!CheckSaveStatus() || !Loaded()) return;
  basTiles::CurrentFileName.clear();
  BoardGrid_.Clear();
  Grid->PaintAll();
  fFileChanged = false;
}

void frmEdit::mnuFileOpen_Click() {
  if (!CheckSaveStatus()) return;
  cdlgOpen_.fileName.clear();
  if (cdlgOpen_.ShowOpen()) open(cdlgOpen_.fileName);
}

void frmEdit::mnuFileRecent_Click(std::int16_t Index) {
  if (CheckSaveStatus()) open(RecentFiles->FileName(Index));
}

void frmEdit::open(const fs::path& file) {
  if (!Loaded()) return;
  hint_.end();
  if (!basTiles::LoadPuzzle(file, true)) {
    Dialogs::message(basTiles::LastFileError, Dialogs::Icon::None);
    basTiles::CurrentFileName.clear();
    return;
  }
  basTiles::CurrentFileName = file;
  RecentFiles->AddRecent(file.string());
  fFileChanged = false;
}

void frmEdit::mnuFileSave_Click() {
  if (basTiles::CurrentFileName.empty())
    mnuFileSaveAs_Click();
  else
    save();
}

void frmEdit::mnuFileSaveAs_Click() {
  cdlgOpen_.fileName = basTiles::CurrentFileName;
  if (!cdlgOpen_.ShowSave() || !Loaded()) return;
  basTiles::CurrentFileName = cdlgOpen_.fileName;
  save();
}

void frmEdit::save() {
  basTiles::fSaved = basTiles::SavePuzzle(basTiles::CurrentFileName, *Grid);
  if (!basTiles::fSaved) Dialogs::message(basTiles::LastFileError, Dialogs::Icon::None);
}
