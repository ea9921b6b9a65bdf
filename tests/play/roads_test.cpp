// The ways between the windows, and how the program ends.
#include "services/basKelvoWinAPI.h"
#include "tests/play/PlayFixture.h"

namespace {

class Roads : public PlayFixture {
 protected:
  int emptyCells() {
    return Script::onScreen([this] { return int{program_->main.Grid->EmptyCount()}; });
  }
};

TEST_F(Roads, SplashPlayChooserCreateEditorPlayEditExit) {
  play([this] {
    waitOpen(program_->splash);
    EXPECT_EQ(openWindows(), 1);
    key(program_->splash, Qt::Key_Return);
    waitOpen(program_->open);
    EXPECT_EQ(openWindows(), 2);
    showTab(4);
    click(program_->open, "cmdCreate");
    waitOpen(program_->edit);
    EXPECT_EQ(openWindows(), 1);

    menu(program_->edit, "mnuFilePlay");
    waitOpen(program_->open);
    EXPECT_EQ(openWindows(), 2);
    EXPECT_TRUE(Script::onScreen([this] { return control(program_->open, "cmdOk")->isEnabled(); }));
    showTab(0);
    click(program_->open, "cmdOk");
    waitClosed(program_->open);
    EXPECT_FALSE(visible(program_->main, "fraCover"));

    menu(program_->main, "mnuViewEdit");
    waitOpen(program_->edit);
    Script::waitFor("the play window to close", [this] { return !program_->main.Loaded(); });
    EXPECT_EQ(openWindows(), 1);
    menu(program_->edit, "mnuFileClose");
    waitClosed(program_->edit);
  });
  EXPECT_EQ(Form::Count(), 0);
}

TEST_F(Roads, ASolvedPuzzleOffersFourWaysOn) {
  play([this] {
    toPlay();
    solve();
    EXPECT_EQ(openWindows(), 2);
    // A key that was meant to mirror a piece chooses nothing.
    for (Qt::Key typed : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape})
      key(program_->finished, typed);
    Script::onScreen([] {});
    EXPECT_TRUE(Script::onScreen([this] { return program_->finished.Loaded(); }));

    click(program_->finished, "imgRetry");
    waitClosed(program_->finished);
    EXPECT_EQ(emptyCells(), 5);
    solve();
    click(program_->finished, "lblOpen");
    waitOpen(program_->open);
    EXPECT_FALSE(Script::onScreen([this] { return program_->finished.Loaded(); }));
    escape(program_->open);
    EXPECT_EQ(emptyCells(), 5);
    solve();
    click(program_->finished, "imgEdit");
    waitOpen(program_->edit);
    EXPECT_EQ(openWindows(), 1);

    menu(program_->edit, "mnuFilePlay");
    waitOpen(program_->open);
    escape(program_->open);
    solve();
    click(program_->finished, "imgQuit");
    waitClosed(program_->main);
  });
  EXPECT_EQ(Form::Count(), 0);
}

TEST_F(Roads, TheSplashWindowIsTheAboutBoxOnceItHasBeenLeft) {
  play([this] {
    waitOpen(program_->splash);
    EXPECT_TRUE(visible(program_->splash, "imgEdit"));
    int visits = 0;
    Script::onScreen([&] {
      const auto usual = basKelvoWinAPI::ShellExecuteA;
      basKelvoWinAPI::ShellExecuteA = [&visits](auto&&...) { return ++visits, 42; };
      for (const char* name : {"imgVisit", "lblVisit"}) {
        QWidget* option = control(program_->splash, name);
        QTest::mouseClick(option, Qt::LeftButton);
        QTest::mouseDClick(option, Qt::LeftButton);
        QTest::mouseRelease(option, Qt::LeftButton);
      }
      basKelvoWinAPI::ShellExecuteA = usual;
    });
    EXPECT_EQ(visits, 2) << "a double-click is one click";
    toPlay();
    openAbout(program_->main);
    Script::onScreen([this] {
      const auto* ok = qobject_cast<QLabel*>(control(program_->splash, "Play"));
      EXPECT_EQ(ok->text(), "Ok");
      EXPECT_EQ(ok->toolTip(), "Back to the game");
      EXPECT_FALSE(control(program_->splash, "imgEdit")->isVisible());
      EXPECT_NEAR(ok->geometry().center().x(),
                  control(program_->splash, "imgPlay")->geometry().center().x(), 1);
    });
    escape(program_->splash);
    openAbout(program_->main);
    click(program_->splash, "Play");
    waitClosed(program_->splash);
    EXPECT_EQ(openWindows(), 1);
    closeMain();
  });
}

TEST_F(Roads, StartUpMakesTheUserFolderOrGoesOnWithoutIt) {
  play([this] {
    waitOpen(program_->splash);
    EXPECT_TRUE(fs::is_directory(folder_ / "User"));
    Script::post([this] { program_->splash.Window()->close(); });
    waitClosed(program_->splash);
  });
  fs::remove(folder_ / "User");
  putBytes(folder_ / "User", "a file");
  play([this] {
    waitOpen(program_->splash);
    EXPECT_TRUE(fs::is_regular_file(folder_ / "User"));
    toPlay();
    menu(program_->main, "mnuFileOpen");
    waitOpen(program_->open);
    EXPECT_FALSE(Script::onScreen([this] {
      return control(program_->open, "lvwPuzzles4")->isVisibleTo(program_->open.Window());
    }));
    escape(program_->open);
    closeMain();
  });
}

}  // namespace
