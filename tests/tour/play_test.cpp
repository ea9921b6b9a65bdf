// The whole game on a real X server, played with the real pointer.
#include <gtest/gtest.h>

#include <QApplication>
#include <QListView>
#include <QTabWidget>
#include <QTemporaryDir>

#include "model/basTiles.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "platform/Settings.h"
#include "play/basStartup.h"
#include "script/Script.h"
#include "tour/Hands.h"

using Script::onScreen;
using Script::waitFor;

namespace {

class Tour : public ::testing::Test {
 protected:
  void SetUp() override {
    basStartup::fSplashDone = false;
    program_.emplace();
    program_->start();
  }

  void TearDown() override {
    program_.reset();
    finishFirstLevelWork();
    EXPECT_EQ(Form::Count(), 0);
  }

  /// Plays with the real pointer beside the program.
  void play(const std::function<void(Robot&, Hands&)>& script) {
    const std::string trouble = Script::run([&] {
      Robot robot;
      Hands hands(robot, *program_);
      script(robot, hands);
    });
    EXPECT_EQ(trouble, "");
  }

  std::vector<PuzzleFormat::PieceRecord> rocket() const {
    return Hands::solution(Program::installationFolder() / "puzzles" / "rocket.qzl");
  }

  void quit(Hands& hands) {
    hands.waitOpen(program_->finished);
    hands.clickOn(program_->finished, "imgQuit");
    hands.waitClosed(program_->main);
  }

  QTemporaryDir folder_;
  Replacement<Settings::Place> settings_{
      Settings::place, Settings::Place{folder_.filePath("settings.ini").toStdString()}};
  Replacement<std::function<std::filesystem::path()>> installed_{Program::programFolder,
                                                                 [] { return QUINZOLITH_TREE; }};
  std::optional<Wiring> program_;
};

TEST_F(Tour, TheRocketIsSolvedClickByClickAndAgainWithTheButtonHeld) {
  play([&](Robot& robot, Hands& hands) {
    hands.waitOpen(program_->splash);
    robot.key("Return");
    hands.waitOpen(program_->open);
    robot.key("Escape");
    hands.waitClosed(program_->open);
    hands.waitOpen(program_->main);
    hands.solve(rocket(), Hands::Carrying::ClickByClick, [&](std::size_t laid) {
      if (laid != 0) return;
      hands.dropInVain(*program_->main.Grid,
                       [&] { return Hands::cell(*program_->main.Grid, 0, 0); });
      EXPECT_TRUE(onScreen([&] { return program_->main.Grid->FloatingPento() != nullptr; }));
    });
    hands.waitOpen(program_->finished);
    EXPECT_EQ(onScreen([&] { return int{program_->main.Grid->EmptyCount()}; }), 0);

    hands.clickOn(program_->finished, "imgRetry");
    hands.waitClosed(program_->finished);
    hands.waitOpen(program_->main);
    EXPECT_EQ(
        onScreen([&] { return program_->main.PentoPanel->Grid()->PentoCollection().Count(); }),
        rocket().size());
    hands.solve(rocket(), Hands::Carrying::ButtonHeld);
    quit(hands);
  });
}

/// Answers the editor's save dialog by keys.
void saveAs(Robot& robot, const std::string& name) {
  waitFor("the file dialog", [] {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal && modal->isActiveWindow();
  });
  robot.type(name);
  robot.key("Return");
  waitFor("the dialog to close", [] { return !QApplication::activeModalWidget(); });
}

/// Takes a new piece from its button and lays it with its corner on a cell.
void layNew(Robot& robot, Hands& hands, frmEdit& edit, int type, int column, int row) {
  const auto pieces = [&] { return edit.Grid->Grid()->PentoCollection().Count(); };
  const std::size_t before = onScreen(pieces);
  hands.clickOn(edit, QString("cmdPento%1").arg(type));
  waitFor("the new piece", [&] {
    const PentoRef piece = edit.Grid->FloatingPento();
    return piece && piece->PentoType() == type;
  });
  robot.moveTo(onScreen([&] {
    const PentoRef piece = edit.Grid->FloatingPento();
    return Hands::cell(*edit.Grid, column + (piece->Width() - 1) / 2.0,
                       row + (piece->Height() - 1) / 2.0);
  }));
  robot.click();
  waitFor("the piece to lie on the board", [&] { return pieces() == before + 1; });
}

TEST_F(Tour, APuzzleIsMadeSavedFoundInTheChooserAndSolved) {
  const QTemporaryDir user;
  const std::filesystem::path file =
      std::filesystem::path(user.path().toStdString()) / "handmade.qzl";
  Program::UserPath = file.parent_path();
  play([&](Robot& robot, Hands& hands) {
    hands.waitOpen(program_->splash);
    hands.clickOn(program_->splash, "imgEdit");
    hands.waitOpen(program_->edit);
    layNew(robot, hands, program_->edit, 1, 4, 4);
    layNew(robot, hands, program_->edit, 8, 5, 5);
    hands.clickOn(program_->edit, "cmdDown");
    hands.choose(program_->edit, "mnuFile", "mnuFileSave");
    saveAs(robot, "handmade");
    EXPECT_TRUE(std::filesystem::exists(file));

    hands.choose(program_->edit, "mnuFile", "mnuFilePlay");
    hands.waitOpen(program_->open);
    onScreen([&] {
      auto* tabs = program_->open.Window()->findChild<QTabWidget*>();
      ASSERT_EQ(tabs->tabText(4), "Other");
      tabs->setCurrentIndex(4);
      auto* list = program_->open.Window()->findChild<QListView*>("lvwPuzzles4");
      ASSERT_EQ(list->model()->rowCount(), 1);
      EXPECT_EQ(list->currentIndex().data().toString(), "handmade");
    });
    hands.clickOn(program_->open, "cmdOk");
    hands.waitClosed(program_->open);
    hands.waitOpen(program_->main);
    EXPECT_EQ(onScreen([] { return basTiles::CurrentPuzzleFile; }), file);
    hands.solve(Hands::solution(file), Hands::Carrying::ClickByClick);
    quit(hands);
  });
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "xcb");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
