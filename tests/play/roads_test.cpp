// The ways between the windows, and how the program ends.
#include <QMouseEvent>

#include "play/BesideShape.h"
#include "services/basKelvoWinAPI.h"
#include "tests/play/PlayFixture.h"

namespace {

class Roads : public PlayFixture {
 protected:
  void TearDown() override {
    EXPECT_EQ(Form::Count(), 0);
    PlayFixture::TearDown();
  }
  int emptyCells() {
    return onScreen([this] { return int{main().Grid->EmptyCount()}; });
  }
};

TEST_F(Roads, SplashPlayChooserCreateEditorPlayEditExit) {
  play([this] {
    waitOpen(splash());
    EXPECT_EQ(openWindows(), 1);
    key(splash(), Qt::Key_Return);
    waitOpen(chooser());
    EXPECT_EQ(openWindows(), 2);
    showTab(4);
    click(chooser(), "cmdCreate");
    waitOpen(edit());
    EXPECT_EQ(openWindows(), 1);

    menu(edit(), "mnuFilePlay");
    waitOpen(chooser());
    EXPECT_EQ(openWindows(), 2);
    EXPECT_TRUE(onScreen([this] { return control(chooser(), "cmdOk")->isEnabled(); }));
    showTab(0);
    click(chooser(), "cmdOk");
    waitClosed(chooser());
    EXPECT_FALSE(visible(main(), "fraCover"));

    menu(main(), "mnuViewEdit");
    waitOpen(edit());
    waitClosed(main());
    EXPECT_EQ(openWindows(), 1);
    menu(edit(), "mnuFileClose");
    waitClosed(edit());
  });
}

TEST_F(Roads, ASolvedPuzzleOffersFourWaysOn) {
  play([this] {
    toPlay();
    solve();
    EXPECT_EQ(openWindows(), 2);
    // A key that was meant to mirror a piece chooses nothing.
    for (Qt::Key typed : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape}) key(solved(), typed);
    onScreen([] {});
    EXPECT_TRUE(loaded(solved()));

    click(solved(), "imgRetry");
    waitClosed(solved());
    EXPECT_EQ(emptyCells(), 5);
    solve();
    click(solved(), "lblOpen");
    waitOpen(chooser());
    EXPECT_FALSE(loaded(solved()));
    escape(chooser());
    EXPECT_EQ(emptyCells(), 5);
    solve();
    click(solved(), "imgEdit");
    waitOpen(edit());
    EXPECT_EQ(openWindows(), 1);

    menu(edit(), "mnuFilePlay");
    waitOpen(chooser());
    escape(chooser());
    solve();
    click(solved(), "imgQuit");
    waitClosed(main());
  });
}

TEST_F(Roads, TheSolvedDialogIgnoresWhatWasMeantForTheBoard) {
  play([this] {
    toPlay();
    const auto setTime = [this](double now) { setClock([now] { return now; }); };
    setTime(86399.9);  // midnight is near
    solve();
    onScreen([this] {  // the button that laid the last piece is still held
      auto* option = qobject_cast<QAbstractButton*>(control(solved(), "imgQuit"));
      const QPointF middle(option->rect().center());
      QMouseEvent press(QEvent::MouseButtonPress, middle, option->mapToGlobal(middle),
                        Qt::LeftButton, Qt::LeftButton | Qt::RightButton, {});
      QApplication::sendEvent(option, &press);
      EXPECT_FALSE(option->isDown());
    });
    // Seen: a second press, 450 ms after the last drop, left the game.
    for (const auto& [now, stays] : {std::pair{86399.9, true}, {0.55, true}, {0.7, false}}) {
      setTime(now);
      click(solved(), "imgQuit");
      post([this] {
        if (solved().Loaded()) QTest::mouseClick(control(solved(), "lblQuit"), Qt::LeftButton);
        if (solved().Loaded()) QTest::keyClick(control(solved(), "imgQuit"), Qt::Key_Return);
      });
      EXPECT_EQ(loaded(solved()), stays) << now;
    }
    waitClosed(main());
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
    const auto staysOpen = [](Form& window, const char* focused) {
      onScreen([&] {
        if (focused) control(window, focused)->setFocus();
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
      EXPECT_TRUE(loaded(window)) << (focused ? focused : "the list, or nothing");
    };
    waitOpen(splash());
    staysOpen(splash(), nullptr);
    key(splash(), Qt::Key_Return);
    waitOpen(chooser());
    for (const char* focused : {static_cast<const char*>(nullptr), "cmdCancel"})
      staysOpen(chooser(), focused);
    escape(chooser());
    solve();
    staysOpen(solved(), "imgQuit");
    click(solved(), "imgQuit");
    waitClosed(main());
  });
}

TEST_F(Roads, TheSplashWindowIsTheAboutBoxOnceItHasBeenLeft) {
  play([this] {
    waitOpen(splash());
    EXPECT_TRUE(visible(splash(), "imgEdit"));
    int visits = 0;
    onScreen([&] {
      const Replacement shell(basKelvoWinAPI::ShellExecuteA,
                              [&visits](auto&&...) { return ++visits, 42; });
      for (const char* name : {"imgVisit", "lblVisit"}) {
        QWidget* option = control(splash(), name);
        QEnterEvent enter({}, {}, {});
        QApplication::sendEvent(option, &enter);
        EXPECT_EQ(option->cursor().shape(), Qt::BitmapCursor) << name;
        QTest::mouseClick(option, Qt::LeftButton);
        QTest::mouseDClick(option, Qt::LeftButton);
        QTest::mouseRelease(option, Qt::LeftButton);
      }
    });
    EXPECT_EQ(visits, 2) << "a double-click is one click";
    toPlay();
    openAbout(main());
    onScreen([this] {
      const auto* ok = qobject_cast<QLabel*>(control(splash(), "Play"));
      EXPECT_EQ(ok->text(), "Ok");
      EXPECT_EQ(ok->toolTip(), "Back to the game");
      EXPECT_FALSE(control(splash(), "imgEdit")->isVisible());
      EXPECT_NEAR(ok->geometry().center().x(),
                  control(splash(), "imgPlay")->geometry().center().x(), 1);
    });
    click(splash(), "Play");
    waitClosed(splash());
    EXPECT_EQ(openWindows(), 1);
    menu(main(), "mnuFileClose");
    waitClosed(main());
  });
}

TEST_F(Roads, StartUpMakesTheUserFolderOrGoesOnWithoutIt) {
  play([this] {
    waitOpen(splash());
    EXPECT_TRUE(fs::is_directory(folder_ / "User"));
    post([this] { splash().Window()->close(); });
    waitClosed(splash());
  });
  fs::remove(folder_ / "User");
  putBytes(folder_ / "User", "a file");
  inGame([this] {
    EXPECT_TRUE(fs::is_regular_file(folder_ / "User"));
    openChooser();
    EXPECT_FALSE(onScreen(
        [this] { return control(chooser(), "lvwPuzzles4")->isVisibleTo(chooser().Window()); }));
    escape(chooser());
  });
}

}  // namespace
