#pragma once

#include <QFileDialog>

/// The toolkit's file dialog with the program's rules for names: the default extension is appended
/// unless the name ends so already, in any case of letters ("Mr. Smile" has none yet), and the
/// question before a file is replaced is the program's own message box.
///
/// In a sandbox the desktop's portal shows its dialog instead, if the toolkit has what it takes:
/// it asks such questions itself, and what it grants is that very name and no other.
class FileChooser : public QFileDialog {
 public:
  /// `extension` without the dot; empty: none is appended.
  FileChooser(QWidget* parent, const QString& title, const QString& folder, const QString& filter,
              const QString& extension);

  bool asksBeforeReplacing = false;

  /// Presets a name. One whose folder is gone is preset alone, for the folder that is shown.
  void preset(const QString& file);
  /// The full path that was chosen, with its extension. A file to be opened that goes by the very
  /// name that was typed is taken as it is, and so is what a portal grants.
  QString chosen() const;

  void accept() override;

 protected:
  void childEvent(QChildEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool mayBeTaken(const QString& file) const;

  QString ending_;
  bool granted_ = false;  ///< by a portal: the toolkit showed no window of its own
};
