#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest/QTest>
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

  /// Starts the program and runs the script beside it; the program must have ended by itself, with
  /// code 0 and no window left, or the script leaves windows open on purpose.
  void play(const std::function<void()>& script) {
    program_->start();
    const std::string trouble = Script::run(script);
    EXPECT_EQ(trouble, "");
  }

  static QWidget* control(const Form& window, const char* name) {
    QWidget* found = window.Loaded() ? window.Window()->findChild<QWidget*>(name) : nullptr;
    if (!found) throw Script::Error(std::string("There is no control ") + name);
    return found;
  }

  /// Clicks a control with the left button, on the user-interface thread.
  static void click(const Form& window, const char* name) {
    Script::post([&window, name] { QTest::mouseClick(control(window, name), Qt::LeftButton); });
  }

  static void key(const Form& window, Qt::Key key) {
    Script::post([&window, key] { QTest::keyClick(window.Window(), key); });
  }

  static void menu(const Form& window, const char* item) {
    Script::post([&window, item] { window.Window()->findChild<QAction*>(item)->trigger(); });
  }

  static void waitOpen(const Form& window) {
    Script::waitFor("a window to open",
                    [&] { return window.Loaded() && window.Window()->isVisible(); });
  }

  static void waitClosed(const Form& window) {
    Script::waitFor("a window to close", [&] { return !window.Loaded(); });
  }

  static void escape(const Form& window) {
    key(window, Qt::Key_Escape);
    waitClosed(window);
  }

  void openChooser() {
    menu(program_->main, "mnuFileOpen");
    waitOpen(program_->open);
  }

  void showTab(int tab) {
    Script::onScreen(
        [&] { program_->open.Window()->findChild<QTabWidget*>()->setCurrentIndex(tab); });
  }

  void openAbout(const Form& from) {
    menu(from, "mnuHelpAbout");
    waitOpen(program_->splash);
  }

  void closeMain() {
    menu(program_->main, "mnuFileClose");
    waitClosed(program_->main);
  }

  static bool visible(const Form& window, const char* name) {
    return Script::onScreen([&] { return control(window, name)->isVisible(); });
  }

  static void resizeClient(const Form& form, QSize size) {
    Script::onScreen([&] {
      form.Window()->showNormal();
      form.Window()->resize(size + form.Window()->size() - form.Client()->size());
    });
    Script::waitFor("the size", [&] { return form.Client()->size() == size; });
  }

  /// The visible captions of some menus, each after its menu's own, "-" being a separator.
  static std::string captions(const Form& window, const std::vector<const char*>& menus) {
    return Script::onScreen([&] {
      QStringList captions;
      for (const char* name : menus) {
        const auto* found = window.Window()->findChild<QMenu*>(name);
        if (found->menuAction()->isVisible()) captions << found->title();
        for (const QAction* item : found->actions())
          if (item->isVisible()) captions << (item->isSeparator() ? "-" : item->text());
      }
      return captions.join('|').toStdString();
    });
  }

  /// Waits for a message box, answers it with a button and returns its text.
  static std::string answer(QMessageBox::StandardButton button = QMessageBox::Ok) {
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    Script::waitFor("a message", [&] { return box() != nullptr; });
    return Script::onScreen([&] {
      const std::string text = box()->text().toStdString();
      EXPECT_EQ(box()->windowTitle(), "Quinzolith");
      EXPECT_EQ(box()->textFormat(), Qt::PlainText);
      EXPECT_TRUE(box()->parentWidget()) << "it would stand anywhere on the screen";
      box()->button(button)->click();
      return text;
    });
  }

  static int openWindows() {
    return Script::onScreen([] {
      int visible = 0;
      for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible()) ++visible;
      EXPECT_EQ(visible, Form::Count());
      return visible;
    });
  }

  /// Past the splash window and the chooser, to the Rocket puzzle.
  void toPlay() {
    waitOpen(program_->splash);
    key(program_->splash, Qt::Key_Return);
    waitOpen(program_->open);
    escape(program_->open);
  }

  /// Lays the tray's only piece into its place, as a drop would, and waits for the solved dialog.
  void solve() {
    Script::post([this] {
      PENTOWINDOW& board = *program_->main.Grid;
      const PentoRef piece = program_->main.PentoPanel->Grid()->PentoCollection().at(0);
      program_->main.PentoPanel->Grid()->RemovePento(piece->X() + piece->GridX(0),
                                                     piece->Y() + piece->GridY(0));
      piece->PentoType(5);
      ASSERT_TRUE(board.Grid()->AddPento(piece, 6, 6));
      board.Drop();
    });
    waitOpen(program_->finished);
    letPass(1);
  }

  /// Puts the program's clock forward.
  void letPass(double seconds) {
    Script::onScreen([=, this] {
      clock_.emplace(Program::Timer,
                     [clock = *Program::Timer, seconds] { return clock() + seconds; });
    });
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
