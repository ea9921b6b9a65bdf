#include "platform/Dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QStandardPaths>

#include "platform/FileChooser.h"
#include "platform/Form.h"
#include "platform/PendingEvents.h"
#include "platform/PlainText.h"
#include "platform/Program.h"
#include "platform/ToolkitSettings.h"

namespace fs = std::filesystem;

namespace Dialogs {

namespace {

/// A window manager takes its time to make a window active after the dialog before.
QWidget* owner() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidget* active = activeWindow();
  return active ? active : topmostForm();
}

QString text(const fs::path& path) {
  return QString::fromStdString(path.string());
}

QMessageBox::StandardButton show(const std::string& text, Icon icon,
                                 QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton standard) {
  const NestedLoop nested;
  QWidget* parent = owner();
  QMessageBox box(parent);
  box.setWindowTitle(Program::kTitle);
  box.setTextFormat(Qt::PlainText);
  box.setText(PlainText::breakable(QString::fromStdString(text).replace("\r\n", "\n")));
  box.setIcon(icon == Icon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
  box.setStandardButtons(buttons);
  box.setDefaultButton(standard);
  if (parent) box.setWindowModality(Qt::WindowModal);
  const int answer = box.exec();
  if (parent && !Form::Unloaded(parent)) parent->activateWindow();
  return static_cast<QMessageBox::StandardButton>(answer);
}

/// Where a dialog starts when its folder is gone: Qt would take the folder for a file's name.
QString startFolder(const fs::path& folder) {
  if (folder.empty() || QFileInfo(text(folder)).isDir()) return text(folder);
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

Answer answerOf(QMessageBox::StandardButton button) {
  if (button == QMessageBox::Yes) return Answer::Yes;
  return button == QMessageBox::No ? Answer::No : Answer::Cancel;
}

}  // namespace

void message(const std::string& text, Icon icon) {
  show(text, icon, QMessageBox::Ok, QMessageBox::Ok);
}

Answer askYesNo(const std::string& text) {
  return answerOf(
      show(text, Icon::Exclamation, QMessageBox::Yes | QMessageBox::No, QMessageBox::No));
}

Answer askYesNoCancel(const std::string& text) {
  return answerOf(show(text, Icon::Exclamation,
                       QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes));
}

bool FileDialog::ShowOpen() {
  return show(false);
}
bool FileDialog::ShowSave() {
  return show(true);
}

bool FileDialog::show(bool save) {
  keepToolkitFromStoring();
  const NestedLoop nested;
  QWidget* parent = owner();
  FileChooser dialog(parent, QString::fromStdString(title), startFolder(folder),
                     QString::fromStdString(filterName), QString::fromStdString(defaultExtension));
  dialog.asksBeforeReplacing = overwritePrompt;
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  if (!fileName.empty()) dialog.preset(text(fileName));
  if (parent) dialog.setWindowModality(Qt::WindowModal);
  const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  if (parent && !Form::Unloaded(parent)) parent->activateWindow();
  if (!accepted) return false;
  fileName = fs::path(dialog.chosen().toStdU16String());
  folder = fileName.parent_path();
  return true;
}

}  // namespace Dialogs
