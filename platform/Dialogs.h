#pragma once

#include <filesystem>
#include <optional>
#include <string>

/// Message boxes and file dialogs. They block and stand over the window that is active, which gets
/// the focus back; while none is, as right after another dialog, the form shown last.
namespace Dialogs {

enum class Icon { None, Exclamation };
enum class Answer { Yes, No, Cancel };

/// A message with an OK button and the program's title. The text is plain; CR LF breaks the line.
void message(const std::string& text, Icon icon);

/// A question with the exclamation icon and the buttons Yes and No; No is the default.
Answer askYesNo(const std::string& text);

/// A question with the exclamation icon and the buttons Yes, No and Cancel; Yes is the default.
Answer askYesNoCancel(const std::string& text);

/// A file dialog that keeps its settings from one showing to the next. It is the toolkit's own, so
/// that title, filter and question are the same on every desktop; in a sandbox it is the portal's.
struct FileDialog {
  std::string title;
  std::string filterName;        ///< "Pentomino Puzzles (*.qzl)"
  std::string defaultExtension;  ///< added to a name that does not end so, without the dot
  bool overwritePrompt = false;  ///< asks before an existing file is chosen for saving
  std::filesystem::path folder;  ///< where it starts; the last chosen file's folder afterwards
  std::filesystem::path fileName;

  /// Show the dialog with `fileName` preset and put the choice there. False when cancelled; then
  /// nothing has changed. Names of files that do not exist can be chosen for opening, too.
  bool ShowOpen();
  bool ShowSave();

 private:
  bool show(bool save);
};

}  // namespace Dialogs
