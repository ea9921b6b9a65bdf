#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <algorithm>
#include <memory>
#include <optional>

#include "catalogue/Catalogue.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "platform/Screen.h"
#include "platform/Settings.h"
#include "play/basStartup.h"
#include "script/Script.h"
#include "tests/files/FileBytes.h"
#include "tests/model/Pieces.h"
#include "wiring/Wiring.h"

namespace fs = std::filesystem;
using Script::onScreen;
using Script::post;
using Script::waitFor;

/// The whole program in an installed tree of the test's own, on the offscreen platform. Every
/// catalogue puzzle is a single piece there, so that it is quickly solved.
class PlayFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder_ / "puzzles");
    fs::create_directories(folder_ / "tiles");
    for (const char* tiles : {"tiles.jpg", "tiles.bmp"})
      fs::copy_file(fs::path(QUINZOLITH_TREE) / "tiles" / tiles, folder_ / "tiles" / tiles);
    for (const Catalogue::Entry& entry : Catalogue::entries())
      writePuzzle(folder_ / "puzzles" / (std::string(entry.key) + ".qzl"));
    basStartup::fSplashDone = false;
    program_ = std::make_unique<Wiring>();
  }

  void TearDown() override {
    program_.reset();
    finishFirstLevelWork();
    clock_.reset();
    Program::ColorDepth = 24;
    basTiles::CurrentPuzzleFile.clear();
  }

  static void writePuzzle(const fs::path& file) {
    PENTOGRID board = ringedGrid(14, 14);
    board.AddPento(makePiece(5), 6, 6);
    putBytes(file, PuzzleFormat::write(board, PuzzleFormat::kUnlocked));
  }

  frmSplash& splash() { return program_->splash; }
  frmMain& main() { return program_->main; }
  frmOpen& chooser() { return program_->open; }
  frmFinished& solved() { return program_->finished; }
  frmEdit& edit() { return program_->edit; }

  /// Starts the program and runs the script beside it; the program must have ended by itself, with
  /// code 0 and no window left, or the script leaves windows open on purpose.
  void play(const std::function<void()>& script) {
    program_->start();
    EXPECT_EQ(Script::run(script), "");
  }

  /// Runs the script in the play window with the Rocket puzzle, and leaves the program.
  void inGame(const std::function<void()>& script) {
    play([&] {
      toPlay();
      script();
      menu(main(), "mnuFileClose");
      waitClosed(main());
    });
  }

  static QWidget* control(const Form& window, const char* name) {
    QWidget* found = window.Loaded() ? window.Window()->findChild<QWidget*>(name) : nullptr;
    if (!found) throw Script::Error(std::string("There is no control ") + name);
    return found;
  }

  /// Clicks a control with the left button, on the user-interface thread.
  static void click(const Form& window, const char* name) {
    post([&window, name] { QTest::mouseClick(control(window, name), Qt::LeftButton); });
  }

  static void key(const Form& window, Qt::Key key) {
    post([&window, key] { QTest::keyClick(window.Window(), key); });
  }

  static QAction* item(const Form& window, const char* name) {
    return window.Window()->findChild<QAction*>(name);
  }
  static void menu(const Form& window, const char* name) {
    post([&window, name] { item(window, name)->trigger(); });
  }

  static bool loaded(const Form& window) {
    return onScreen([&] { return window.Loaded(); });
  }

  static void waitOpen(const Form& window) {
    waitFor("a window to open", [&] { return window.Loaded() && window.Window()->isVisible(); });
  }

  static void waitClosed(const Form& window) {
    waitFor("a window to close", [&] { return !window.Loaded(); });
  }

  static void escape(const Form& window) {
    key(window, Qt::Key_Escape);
    waitClosed(window);
  }

  void openChooser() {
    menu(main(), "mnuFileOpen");
    waitOpen(chooser());
  }

  void showTab(int tab) {
    onScreen([&] { chooser().Window()->findChild<QTabWidget*>()->setCurrentIndex(tab); });
  }

  void openAbout(const Form& from) {
    menu(from, "mnuHelpAbout");
    waitOpen(splash());
  }

  static bool visible(const Form& window, const char* name) {
    return onScreen([&] { return control(window, name)->isVisible(); });
  }

  static void resizeClient(const Form& form, QSize size) {
    onScreen([&] {
      form.Window()->showNormal();
      form.Window()->resize(size + form.Window()->size() - form.Client()->size());
    });
    waitFor("the size", [&] { return form.Client()->size() == size; });
  }

  /// Waits for a message box, answers it with a button and returns its text.
  static std::string answer(QMessageBox::StandardButton button = QMessageBox::Ok) {
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    waitFor("a message", [&] { return box() != nullptr; });
    return onScreen([&] {
      const std::string text = box()->text().toStdString();
      EXPECT_EQ(box()->windowTitle(), "Quinzolith");
      EXPECT_EQ(box()->textFormat(), Qt::PlainText);
      EXPECT_TRUE(box()->parentWidget()) << "it would stand anywhere on the screen";
      box()->button(button)->click();
      return text;
    });
  }

  static int openWindows() {
    return onScreen([] {
      const QWidgetList all = QApplication::topLevelWidgets();
      const auto visible = std::ranges::count_if(all, &QWidget::isVisible);
      EXPECT_EQ(visible, Form::Count());
      return int(visible);
    });
  }

  /// Past the splash window and the chooser, to the Rocket puzzle.
  void toPlay() {
    waitOpen(splash());
    key(splash(), Qt::Key_Return);
    waitOpen(chooser());
    escape(chooser());
  }

  /// Lays the tray's only piece into its place, as a drop would, and waits for the solved dialog.
  void solve() {
    post([this] {
      PENTOGRID& tray = *main().PentoPanel->Grid();
      const PentoRef piece = tray.PentoCollection().at(0);
      tray.RemovePento(piece->X() + piece->GridX(0), piece->Y() + piece->GridY(0));
      piece->PentoType(5);
      ASSERT_TRUE(main().Grid->Grid()->AddPento(piece, 6, 6));
      main().Grid->Drop();
    });
    waitOpen(solved());
    setClock([clock = *Program::Timer] { return clock() + 1; });
  }

  void setClock(const std::function<double()>& clock) {
    onScreen([&] { clock_.emplace(Program::Timer, clock); });
  }

  QTemporaryDir temporary_;
  fs::path folder_ = fs::path(temporary_.path().toStdString()) / "Kelvo Software" / "Quinzolith";
  Replacement<Settings::Place> settings_{Settings::place,
                                         Settings::Place{(folder_ / "settings.ini").string()}};
  Replacement<std::function<fs::path()>> installed_{Program::programFolder,
                                                    [this] { return folder_; }};
  std::unique_ptr<Wiring> program_;
  std::optional<Replacement<std::function<double()>>> clock_;
};
