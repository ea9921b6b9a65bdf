// The ways between the windows, and how the program ends.
#include <QMouseEvent>

#include "play/BesideShape.h"
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

TEST_F(Roads, TheSolvedDialogIgnoresWhatWasMeantForTheBoard) {
  play([this] {
    toPlay();
    Script::onScreen(
        [this] { clock_.emplace(Program::Timer, [] { return 86399.9; }); });  // midnight is near
    solve();
    Script::onScreen([this] {  // the button that laid the last piece is still held
      auto* option = qobject_cast<QAbstractButton*>(control(program_->finished, "imgQuit"));
      const QPointF middle(option->rect().center());
      QMouseEvent press(QEvent::MouseButtonPress, middle, option->mapToGlobal(middle),
                        Qt::LeftButton, Qt::LeftButton | Qt::RightButton, {});
      QApplication::sendEvent(option, &press);
      EXPECT_FALSE(option->isDown());
    });
    const auto stays = [this](double now) {
      Script::onScreen([=, this] { clock_.emplace(Program::Timer, [now] { return now; }); });
      const auto tryOut = [this](const char* name, bool byKey) {
        Script::post([=, this] {
          if (!program_->finished.Loaded()) return;
          QWidget* option = control(program_->finished, name);
          if (byKey)
            QTest::keyClick(option, Qt::Key_Return);
          else
            QTest::mouseClick(option, Qt::LeftButton);
        });
      };
      tryOut("imgQuit", false);
      tryOut("lblQuit", false);
      tryOut("imgQuit", true);
      Script::onScreen([] {});
      return Script::onScreen([this] { return program_->finished.Loaded(); });
    };
    EXPECT_TRUE(stays(86399.9));  // seen: a second press, 450 ms after the last drop, left the game
    EXPECT_TRUE(stays(0.55));
    EXPECT_FALSE(stays(0.7));
    waitClosed(program_->main);
  });
}

TEST(BesideShape, ItHidesNoneOfTheShapeWhereThereIsRoomAndStaysOnTheScreen) {
  const QRect screen(0, 30, 1000, 700);
  const QSize dialog(400, 300);
  for (const QRect& shape : {QRect(300, 200, 200, 200), QRect(500, 40, 480, 680),
                             QRect(100, 40, 800, 300), QRect(100, 400, 800, 320)}) {
    const QRect placed(besideShape(dialog, shape, screen), dialog);
    EXPECT_TRUE(screen.contains(placed)) << placed.x() << ' ' << placed.y();
    EXPECT_FALSE(placed.intersects(shape)) << placed.x() << ' ' << placed.y();
  }
  const QRegion gable = QRegion(500, 430, 100, 200) + QRegion(350, 630, 400, 100);
  EXPECT_EQ(besideShape({500, 500}, gable, screen),
            QPoint(0, 30));           // no side, but a corner, hides nothing
  const QRect small(0, 0, 300, 200);  // smaller than the dialog: its title stays in reach
  EXPECT_EQ(besideShape(dialog, QRect(50, 50, 200, 100), small), QPoint(0, 0));
}

TEST_F(Roads, AHeldEnterPressesNothingASecondTime) {
  play([this] {
    waitOpen(program_->splash);
    const auto held = [](Form& window) {
      Script::onScreen([&] {
        QWidget* focus = window.Window()->focusWidget();
        const auto send = [&](QEvent::Type type, bool marked, ulong at) {
          if (!window.Loaded()) return;
          QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, "\r", marked);
          event.setTimestamp(at);
          QApplication::sendEvent(focus ? focus : window.Window(), &event);
        };
        send(QEvent::KeyPress, true, 0);
        send(QEvent::KeyRelease, false, 4711);  // seen on X: the toolkit marks some of them only
        send(QEvent::KeyPress, false, 4711);
      });
    };
    held(program_->splash);
    EXPECT_TRUE(Script::onScreen([this] { return program_->splash.Loaded(); }));
    key(program_->splash, Qt::Key_Return);
    waitOpen(program_->open);
    held(program_->open);
    Script::onScreen([this] { control(program_->open, "cmdCancel")->setFocus(); });
    held(program_->open);
    EXPECT_TRUE(Script::onScreen([this] { return program_->open.Loaded(); }));
    escape(program_->open);
    solve();
    Script::onScreen([this] { control(program_->finished, "imgQuit")->setFocus(); });
    held(program_->finished);
    EXPECT_TRUE(Script::onScreen([this] { return program_->finished.Loaded(); }));
    click(program_->finished, "imgQuit");
    waitClosed(program_->main);
  });
}

TEST_F(Roads, TheSplashWindowIsTheAboutBoxOnceItHasBeenLeft) {
  play([this] {
    waitOpen(program_->splash);
    EXPECT_TRUE(visible(program_->splash, "imgEdit"));
    int visits = 0;
    Script::onScreen([&] {
      const Replacement shell(basKelvoWinAPI::ShellExecuteA,
                              [&visits](auto&&...) { return ++visits, 42; });
      for (const char* name : {"imgVisit", "lblVisit"}) {
        QWidget* option = control(program_->splash, name);
        QTest::mouseClick(option, Qt::LeftButton);
        QTest::mouseDClick(option, Qt::LeftButton);
        QTest::mouseRelease(option, Qt::LeftButton);
      }
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
