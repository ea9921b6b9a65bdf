// What the play window, the chooser and the others show and do.
#include <QCheckBox>
#include <QFileDialog>
#include <QTabBar>

#include "tests/play/PlayFixture.h"

namespace {

class Windows : public PlayFixture {
 protected:
  /// Runs the script in the chooser.
  void inChooser(const std::function<void()>& script) {
    inGame([&] {
      openChooser();
      script();
      if (loaded(chooser())) escape(chooser());
    });
  }

  PuzzleList* list(int tab) {
    return dynamic_cast<PuzzleList*>(
        control(chooser(), qPrintable(QString("lvwPuzzles%1").arg(tab))));
  }
  QModelIndex entry(int tab, const QString& title) {
    const QAbstractItemModel& model = *list(tab)->model();
    return model.match(model.index(0, 0), Qt::DisplayRole, title, 1, Qt::MatchExactly).value(0);
  }
  QPoint middle(int tab, const QString& title) {
    return list(tab)->visualRect(entry(tab, title)).center();
  }
  void select(int tab, const QString& title) {
    showTab(tab);
    onScreen([&] {
      ASSERT_TRUE(entry(tab, title).isValid()) << title.toStdString();
      list(tab)->setCurrentIndex(entry(tab, title));
    });
  }
};

TEST_F(Windows, TheTilesFollowTheWindowAndStayLargeEnough) {
  inGame([this] {
    resizeClient(main(), {550, 342});
    onScreen([this] {
      EXPECT_EQ(main().PentoPanel->geometry(), QRect(0, 0, 110, 342));
      EXPECT_EQ(main().Grid->geometry(), QRect(110, 0, 440, 342));
      EXPECT_EQ(main().PentoPanel->TileWidth(), 9);
      EXPECT_EQ(main().Grid->TileWidth(), 21);
      main().Window()->resize(1, 1);
    });
    waitFor("the smallest size", [this] { return main().Client()->width() < 550; });
    EXPECT_GE(onScreen([this] { return int{main().Grid->TileWidth()}; }), 8);
  });
}

TEST_F(Windows, OneSoundItemIsCheckedAndTheChoiceIsStored) {
  inGame([this] {
    for (bool on : {true, false}) {
      onScreen([&] {
        EXPECT_EQ(item(main(), "mnuSoundOn")->isChecked(), on);
        EXPECT_EQ(item(main(), "mnuSoundOff")->isChecked(), !on);
      });
      menu(main(), "mnuSoundOff");
    }
  });
  EXPECT_EQ(Settings::get(Settings::application(), "Sound", "Status", "?"), "False");
}

TEST_F(Windows, TheChooserListsTheCatalogueAndKeepsTabAndEasyMode) {
  inChooser([this] {
    onScreen([this] {
      for (int tab = 0; tab < 4; ++tab) {
        EXPECT_EQ(list(tab)->count(),
                  std::ranges::count(Catalogue::entries(), tab, &Catalogue::Entry::tab));
        EXPECT_EQ(list(tab)->currentIndex().row(), 0);
      }
    });
    click(chooser(), "chkEasy");
    showTab(2);
    onScreen([this] { control(chooser(), "cmdCancel")->setFocus(); });
    key(chooser(), Qt::Key_Return);  // a button that has the focus answers it
    waitClosed(chooser());
    EXPECT_TRUE(onScreen([] { return basTiles::fRandomRotation; }));

    openChooser();
    onScreen([this] {
      EXPECT_EQ(chooser().Window()->findChild<QTabWidget*>()->currentIndex(), 2);
      EXPECT_TRUE(qobject_cast<QCheckBox*>(control(chooser(), "chkEasy"))->isChecked());
    });
    select(2, "Arrow");
    key(chooser(), Qt::Key_Return);
    waitClosed(chooser());
    onScreen([this] {
      EXPECT_EQ(basTiles::CurrentPuzzleFile, folder_ / "puzzles" / "arrow #1.qzl");
      EXPECT_EQ(basTiles::CurrentFileName, "arrow #1");
      EXPECT_FALSE(basTiles::fRandomRotation || basTiles::fRandomFlip);
      EXPECT_TRUE(main().Grid->fEasyMode && main().PentoPanel->fEasyMode);
    });
  });
}

TEST_F(Windows, ARefusedPuzzleLeavesTheChooserOpenAndItsFlagsSet) {
  putBytes(folder_ / "puzzles" / "ten.qzl", "no puzzle");
  inChooser([this] {
    select(0, "Ten");
    click(chooser(), "chkEasy");
    click(chooser(), "cmdOk");
    EXPECT_EQ(answer(), "This is not a valid Quinzolith puzzle.");
    EXPECT_TRUE(onScreen([this] { return main().Grid->fEasyMode; }));
    showTab(4);
    click(chooser(), "cmdOk");
    EXPECT_EQ(answer(), "Please select a puzzle.");
  });
}

TEST_F(Windows, UserPuzzlesAreListedUnderTheirRealNames) {
  fs::create_directories(folder_ / "User" / "folder.qzl");
  for (const char* name : {"My One.qzl", "a#b.QZL", "grün.qzl", ".hidden.qzl", "notes.txt"})
    writePuzzle(folder_ / "User" / name);
  inChooser([this] {
    EXPECT_EQ(onScreen([this] { return list(4)->count(); }), 3);
    for (const char* title : {"a#b", "My One", "grün"}) {
      select(4, title);
      post([this, title] {
        const QPoint at = middle(4, title);
        QTest::mouseClick(list(4)->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list(4)->viewport(), Qt::LeftButton, {}, at);
      });
      waitClosed(chooser());
      EXPECT_EQ(onScreen([] { return basTiles::CurrentFileName.string(); }), title);
      openChooser();
    }
  });
}

TEST_F(Windows, AListOfPuzzlesAlwaysHasOneSelectedAndLoadsThatOne) {
  inChooser([this] {
    onScreen([this] {
      QWidget* puzzles = list(0)->viewport();
      const QPoint ten = middle(0, "Ten"), beside = puzzles->rect().bottomRight() - QPoint(2, 2);
      QTest::mouseClick(puzzles, Qt::LeftButton, {}, ten);
      QTest::mouseClick(puzzles, Qt::LeftButton, {}, beside);
      QTest::mouseClick(puzzles, Qt::LeftButton, Qt::ControlModifier, ten);
      QTest::keyClick(list(0), Qt::Key_Space, Qt::ControlModifier);
      EXPECT_EQ(list(0)->selectionModel()->selectedIndexes(), QModelIndexList{entry(0, "Ten")});
    });
    click(chooser(), "cmdOk");
    waitClosed(chooser());
    EXPECT_EQ(onScreen([] { return basTiles::CurrentPuzzleFile.filename(); }), "ten.qzl");
  });
}

TEST_F(Windows, TheChooserShowsNamesAsTheyAreAndTabReachesTheListFirst) {
  const std::string wicked = "<h1>\u202eBig\n<img src=&#47;dev&#47;zero>";
  fs::create_directories(folder_ / "User");
  writePuzzle(folder_ / "User" / (wicked + std::string(255 - wicked.size() - 4, 'W') + ".qzl"));
  inChooser([this] {
    showTab(4);
    onScreen([this] {
      const QModelIndex first = list(4)->model()->index(0, 0);
      const QString tip = first.data(Qt::ToolTipRole).toString();
      EXPECT_TRUE(tip.startsWith("<qt>&lt;h1&gt;\\u202EBig\\u000A&lt;img")) << tip.toStdString();
      EXPECT_LE(list(4)->visualRect(first).width(), 100);
      QTabBar* tabs = chooser().Window()->findChild<QTabWidget*>()->tabBar();
      tabs->setFocus();
      QTest::keyClick(tabs, Qt::Key_Tab);
      EXPECT_TRUE(list(4)->hasFocus());
      QTest::keyClick(list(4), Qt::Key_Tab);
      EXPECT_TRUE(control(chooser(), "cmdCreate")->hasFocus());
    });
  });
}

TEST_F(Windows, BrowseStartsInTheUsersFolder) {
  inChooser([this] {
    click(chooser(), "cmdBrowse");
    const auto dialog = [] {
      return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    };
    waitFor("the file dialog", [&] { return dialog() != nullptr; });
    EXPECT_EQ(onScreen([&] { return dialog()->directory().path().toStdString(); }),
              (folder_ / "User").string());
    post([&] { dialog()->reject(); });
    waitFor("the chooser again", [&] { return !dialog(); });
  });
}

TEST_F(Windows, AMissingRocketIsPassedOverInSilence) {
  fs::remove(folder_ / "puzzles" / "rocket.qzl");
  inGame([] { EXPECT_EQ(openWindows(), 1); });
}

TEST_F(Windows, FewColoursTakeTheirOwnPicturesAndDropTheBackgrounds) {
  for (int depth : {8, 4, 16}) {
    const Replacement colours(Screen::bitsPerPixel, [depth](const QWidget&) { return depth; });
    basStartup::fSplashDone = false;
    inGame([this, depth] {
      EXPECT_EQ(onScreen([] { return Program::ColorDepth; }), depth);
      const auto background = [this] {
        return onScreen([this] { return !main().Grid->BackTexture().isNull(); });
      };
      EXPECT_EQ(background(), depth != 8) << depth;
      openChooser();
      EXPECT_EQ(visible(main(), "fraCover"), depth < 16);
      escape(chooser());
      openAbout(main());
      escape(splash());
      waitFor("the boards again", [this] { return !control(main(), "fraCover")->isVisible(); });
      EXPECT_EQ(background(), depth >= 16) << depth;
    });
  }
}

/// Controls that a screen reader meets and that would have nothing to say.
std::string nameless(const Form& window) {
  QStringList found;
  for (const QWidget* widget : window.Window()->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const bool named = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
    const bool inside = widget->objectName().startsWith("qt_") || widget->focusProxy() ||
                        qobject_cast<const QTabWidget*>(widget->parentWidget());
    if (!named && !inside)
      found << widget->metaObject()->className() + QString(" ") + widget->objectName();
  }
  return found.join(", ").toStdString();
}

TEST_F(Windows, EveryControlHasANameAndTheSolvedDialogFocusesNothing) {
  const auto expectNames = [](const Form& window) {
    EXPECT_EQ(onScreen([&] { return nameless(window); }), "");
  };
  inChooser([&] {
    expectNames(main());
    expectNames(chooser());
    escape(chooser());
    openAbout(main());
    expectNames(splash());
    escape(splash());
    solve();
    expectNames(solved());
    onScreen([this] {
      const QWidget* focused = solved().Window()->focusWidget();
      EXPECT_TRUE(!focused || focused == solved().Window());
      QTest::keyClick(solved().Window(), Qt::Key_Tab);
      EXPECT_TRUE(control(solved(), "imgRetry")->hasFocus());
    });
    post([this] { QTest::keyClick(control(solved(), "imgRetry"), Qt::Key_Return); });
    waitClosed(solved());
  });
}

}  // namespace
