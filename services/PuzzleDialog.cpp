#include "services/PuzzleDialog.h"

#include <QFileInfo>
#include <QStandardPaths>

#include "platform/Program.h"

Dialogs::FileDialog puzzleDialog() {
  Dialogs::FileDialog dialog;
  dialog.title = "Open Puzzle";
  dialog.filterName = "Pentomino Puzzles (*.qzl)";
  dialog.defaultExtension = "qzl";
  return dialog;
}

std::filesystem::path puzzleFolder() {
  const QFileInfo folder(QString::fromStdU16String(Program::UserPath.u16string()));
  if (folder.isDir() && folder.isWritable()) return Program::UserPath;
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdU16String();
}
