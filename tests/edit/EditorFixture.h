#pragma once

#include <QFileDialog>
#include <QLineEdit>

#include "platform/PictureBox.h"
#include "tests/play/PlayFixture.h"

/// The whole program with the editor open, and hands for its buttons, menus and file dialogs.
class EditorFixture : public PlayFixture {
 protected:
  void SetUp() override {
    PlayFixture::SetUp();
    basTiles::fSaved = false;
    user_ = folder_ / "User";
  }

  /// Runs the script in the open editor, and leaves the editor without saving.
  void inEditor(const std::function<void()>& script) {
    play([&] {
      openEditor();
      script();
      leave();
    });
  }

  void openEditor() {
    waitOpen(splash());
    click(splash(), "imgEdit");
    waitActivated();
  }

  void waitActivated() {
    waitOpen(edit());
    waitFor("the first activation", [this] { return chooser().fEdit; });
  }

  void leave() {
    forgetChanges();
    menu(edit(), "mnuFileClose");
    waitClosed(edit());
  }

  /// Takes a new piece and lays its top-left corner on a cell.
  void lay(int type, int column, int row) {
    onScreen([=, this] {
      QTest::mouseClick(control(edit(), qPrintable(QString("cmdPento%1").arg(type))),
                        Qt::LeftButton);
      const PentoRef piece = edit().Grid->FloatingPento();
      const double s = edit().Grid->TileWidth();
      pressBoard((column + piece->Width() / 2.0) * s, (row + piece->Height() / 2.0) * s);
    });
  }

  void pressBoard(double x, double y) {
    QWidget* surface = control(edit(), "pctFore");
    const int border = PictureBox::kSunkenBorder;
    const QPoint at(border + static_cast<int>(x), border + static_cast<int>(y));
    QTest::mouseMove(surface, at);
    QTest::mouseClick(surface, Qt::LeftButton, {}, at);
  }

  /// Saves under a name that is chosen in the dialog.
  void saveAs(const fs::path& file) {
    menu(edit(), "mnuFileSaveAs");
    choose(file);
    waitQuiet();
  }

  /// Waits for the file dialog and types a name, or cancels it.
  static void choose(const fs::path& file) {
    waitForDialog();
    post([file] {
      auto* name = dialog()->findChild<QLineEdit*>("fileNameEdit");
      name->setText(QString::fromStdString(file.string()));
      QTest::keyClick(name, Qt::Key_Return);
    });
  }
  static void cancelDialog() {
    waitForDialog();
    post([] { dialog()->reject(); });
    waitQuiet();
  }
  static QFileDialog* dialog() {
    return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
  }
  static std::string nameInDialog() {
    waitForDialog();
    return onScreen(
        [] { return dialog()->findChild<QLineEdit*>("fileNameEdit")->text().toStdString(); });
  }
  static fs::path folderInDialog() {
    waitForDialog();
    return onScreen([] { return dialog()->directory().path().toStdString(); });
  }
  static void waitForDialog() {
    waitFor("the file dialog", [] { return dialog() != nullptr; });
  }
  /// Waits until the handler that opened a dialog has gone on after it to its end.
  static void waitQuiet() {
    waitFor("the dialogs to close",
            [] { return !QApplication::activeModalWidget() && NestedLoop::depth() == 0; });
  }

  /// The pieces on the board, and a "*" when they have changed since the last save.
  std::string state() {
    return onScreen([this] {
      const std::size_t pieces = edit().Grid->Grid()->PentoCollection().Count();
      return std::to_string(pieces) + (edit().fFileChanged ? "*" : "");
    });
  }
  void forgetChanges() {
    onScreen([this] { edit().fFileChanged = false; });
  }
  /// The type of the piece in the air, or -1.
  int inTheAir() {
    return onScreen([this] {
      const PentoRef piece = edit().Grid->FloatingPento();
      return piece ? int{piece->PentoType()} : -1;
    });
  }
  static fs::path current() {
    return onScreen([] { return basTiles::CurrentFileName; });
  }
  static bool saved() {
    return onScreen([] { return basTiles::fSaved; });
  }
  std::string recent(int item) {
    return onScreen([&] {
      auto* action = edit().Window()->findChild<QAction*>(QString("mnuFileRecent%1").arg(item));
      return action->isVisible() ? action->text().toStdString() : "hidden";
    });
  }

  fs::path user_;
};
