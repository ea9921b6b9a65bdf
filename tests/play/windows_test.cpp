// What the play window, the chooser and the others show and do.
#include <QCheckBox>
#include <QFileDialog>
#include <QMenu>
#include <QTabBar>

#include <algorithm>

#include "catalogue/Catalogue.h"
#include "tests/play/PlayFixture.h"

namespace {

std::ptrdiff_t puzzlesOnTab(int tab) {
  const auto entries = Catalogue::entries();
  return std::count_if(entries.begin(), entries.end(),
                       [tab](const Catalogue::Entry& entry) { return entry.tab == tab; });
}

class Windows : public PlayFixture {
 protected:
  PuzzleList* list(int tab) {
    return dynamic_cast<PuzzleList*>(
        control(program_->open, qPrintable(QString("lvwPuzzles%1").arg(tab))));
  }

  QModelIndex entry(int tab, const QString& title) {
    const QAbstractItemModel& model = *list(tab)->model();
    return model.match(model.index(0, 0), Qt::DisplayRole, title, 1, Qt::MatchExactly).value(0);
  }

  void clickIn(int tab, const QPoint& at, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(list(tab)->viewport(), Qt::LeftButton, keys, at);
  }

  void select(int tab, const QString& title) {
    Script::onScreen([&] {
      ASSERT_TRUE(entry(tab, title).isValid()) << title.toStdString();
      list(tab)->setCurrentIndex(entry(tab, title));
    });
  }
};

TEST_F(Windows, TheLayoutFollowsItsRuleAtAnySize) {
  play([this] {
    toPlay();
    resizeClient(program_->main, {550, 342});
    Script::onScreen([this] {
      EXPECT_EQ(program_->main.PentoPanel->geometry(), QRect(0, 0, 110, 342));
      EXPECT_EQ(program_->main.Grid->geometry(), QRect(110, 0, 440, 342));
      EXPECT_EQ(program_->main.PentoPanel->TileWidth(), 9);
      EXPECT_EQ(program_->main.Grid->TileWidth(), 21);
      program_->main.Window()->resize(1, 1);
    });
    Script::waitFor("the smallest size", [this] { return program_->main.Client()->width() < 550; });
    EXPECT_GE(Script::onScreen([this] { return int{program_->main.Grid->TileWidth()}; }), 8);
    closeMain();
  });
}

TEST_F(Windows, TheMenusHaveTheirCaptionsAndOneSoundItemIsChecked) {
  play([this] {
    toPlay();
    EXPECT_EQ(captions(program_->main, {"mnuFile", "mnuSound", "mnuHelp"}),
              "File|Select puzzle...|-|Edit...|-|Exit|Sound|Sound on|Sound off|"
              "Help|Contents...|How to solve puzzles...|-|About...");
    EXPECT_TRUE(Script::onScreen([this] {
      return !program_->main.Window()->findChild<QMenu*>("mnuView")->menuAction()->isVisible();
    }));
    const auto checked = [this](const char* item) {
      return Script::onScreen(
          [&] { return program_->main.Window()->findChild<QAction*>(item)->isChecked(); });
    };
    EXPECT_TRUE(checked("mnuSoundOn"));
    EXPECT_FALSE(checked("mnuSoundOff"));
    menu(program_->main, "mnuSoundOff");
    EXPECT_FALSE(checked("mnuSoundOn"));
    EXPECT_TRUE(checked("mnuSoundOff"));
    closeMain();
  });
  EXPECT_EQ(Settings::get(Settings::application(), "Sound", "Status", "?"), "False");
}

TEST_F(Windows, TheChooserListsTheCatalogueAndKeepsTabAndEasyMode) {
  play([this] {
    toPlay();
    openChooser();
    Script::onScreen([this] {
      for (int tab = 0; tab < 4; ++tab) {
        EXPECT_EQ(list(tab)->count(), puzzlesOnTab(tab));
        EXPECT_EQ(list(tab)->currentIndex().row(), 0);
      }
      EXPECT_EQ(list(0)->model()->index(1, 0).data().toString(), "Tobin's Critter");
    });
    click(program_->open, "chkEasy");
    showTab(2);
    Script::onScreen([this] { control(program_->open, "cmdCancel")->setFocus(); });
    key(program_->open, Qt::Key_Return);  // a button that has the focus answers it
    waitClosed(program_->open);
    EXPECT_TRUE(Script::onScreen([] { return basTiles::fRandomRotation; }));

    openChooser();
    Script::onScreen([this] {
      EXPECT_EQ(program_->open.Window()->findChild<QTabWidget*>()->currentIndex(), 2);
      EXPECT_TRUE(qobject_cast<QCheckBox*>(control(program_->open, "chkEasy"))->isChecked());
    });
    select(2, "Arrow");
    key(program_->open, Qt::Key_Return);
    waitClosed(program_->open);
    Script::onScreen([this] {
      EXPECT_EQ(basTiles::CurrentPuzzleFile, folder_ / "puzzles" / "arrow #1.qzl");
      EXPECT_EQ(basTiles::CurrentFileName, "arrow #1");
      EXPECT_FALSE(basTiles::fRandomRotation);
      EXPECT_FALSE(basTiles::fRandomFlip);
      EXPECT_TRUE(program_->main.Grid->fEasyMode);
      EXPECT_TRUE(program_->main.PentoPanel->fEasyMode);
    });
    closeMain();
  });
}

TEST_F(Windows, ARefusedPuzzleLeavesTheChooserOpenAndItsFlagsSet) {
  putBytes(folder_ / "puzzles" / "ten.qzl", "no puzzle");
  play([this] {
    toPlay();
    openChooser();
    select(0, "Ten");
    click(program_->open, "chkEasy");
    click(program_->open, "cmdOk");
    EXPECT_EQ(answer(), "This is not a valid Quinzolith puzzle.");
    EXPECT_TRUE(Script::onScreen([this] { return program_->main.Grid->fEasyMode; }));
    showTab(4);
    click(program_->open, "cmdOk");
    EXPECT_EQ(answer(), "Please select a puzzle.");
    escape(program_->open);
    closeMain();
  });
}

TEST_F(Windows, UserPuzzlesAreListedUnderTheirRealNames) {
  fs::create_directories(folder_ / "User" / "folder.qzl");
  for (const char* name : {"My One.qzl", "a#b.QZL", "grün.qzl", ".hidden.qzl", "notes.txt"})
    writePuzzle(folder_ / "User" / name);
  play([this] {
    toPlay();
    openChooser();
    EXPECT_EQ(Script::onScreen([this] { return list(4)->count(); }), 3);
    for (const char* title : {"a#b", "My One", "grün"}) {
      showTab(4);
      select(4, title);
      Script::post([this] {
        QListView* entries = list(4);
        const QPoint middle = entries->visualRect(entries->currentIndex()).center();
        QTest::mouseClick(entries->viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(entries->viewport(), Qt::LeftButton, {}, middle);
      });
      waitClosed(program_->open);
      EXPECT_EQ(Script::onScreen([] { return basTiles::CurrentFileName.string(); }), title);
      openChooser();
    }
    escape(program_->open);
    closeMain();
  });
}

TEST_F(Windows, AListOfPuzzlesAlwaysHasOneSelectedAndLoadsThatOne) {
  play([this] {
    toPlay();
    openChooser();
    Script::onScreen([this] {
      clickIn(0, list(0)->visualRect(entry(0, "Ten")).center());
      clickIn(0, list(0)->viewport()->rect().bottomRight() - QPoint(2, 2));
      clickIn(0, list(0)->visualRect(entry(0, "Ten")).center(), Qt::ControlModifier);
      QTest::keyClick(list(0), Qt::Key_Space, Qt::ControlModifier);
      EXPECT_EQ(list(0)->selectionModel()->selectedIndexes(), QModelIndexList{entry(0, "Ten")});
    });
    click(program_->open, "cmdOk");
    waitClosed(program_->open);
    EXPECT_EQ(Script::onScreen([] { return basTiles::CurrentPuzzleFile.filename(); }), "ten.qzl");
    closeMain();
  });
}

TEST_F(Windows, TheChooserShowsNamesAsTheyAreAndTabReachesTheListFirst) {
  const std::string wicked = "<h1>\u202eBig\n<img src=&#47;dev&#47;zero>";
  fs::create_directories(folder_ / "User");
  writePuzzle(folder_ / "User" / (wicked + std::string(255 - wicked.size() - 4, 'W') + ".qzl"));
  play([this] {
    toPlay();
    openChooser();
    showTab(4);
    Script::onScreen([this] {
      const QModelIndex first = list(4)->model()->index(0, 0);
      const QString tip = first.data(Qt::ToolTipRole).toString();
      EXPECT_TRUE(tip.startsWith("<qt>&lt;h1&gt;\\u202EBig\\u000A&lt;img")) << tip.toStdString();
      EXPECT_LE(list(4)->visualRect(first).width(), 100);
      QTabBar* tabs = program_->open.Window()->findChild<QTabWidget*>()->tabBar();
      tabs->setFocus();
      QTest::keyClick(tabs, Qt::Key_Tab);
      EXPECT_TRUE(list(4)->hasFocus());
      QTest::keyClick(list(4), Qt::Key_Tab);
      EXPECT_TRUE(control(program_->open, "cmdCreate")->hasFocus());
    });
    escape(program_->open);
    closeMain();
  });
}

TEST_F(Windows, BrowseStartsInTheUsersFolder) {
  play([this] {
    toPlay();
    openChooser();
    click(program_->open, "cmdBrowse");
    const auto dialog = [] {
      return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    };
    Script::waitFor("the file dialog", [&] { return dialog() != nullptr; });
    EXPECT_EQ(Script::onScreen([&] { return dialog()->directory().path().toStdString(); }),
              (folder_ / "User").string());
    Script::post([&] { dialog()->reject(); });
    Script::waitFor("the chooser again", [&] { return !dialog(); });
    escape(program_->open);
    closeMain();
  });
}

TEST_F(Windows, AMissingRocketIsPassedOverInSilence) {
  fs::remove(folder_ / "puzzles" / "rocket.qzl");
  play([this] {
    toPlay();
    EXPECT_EQ(openWindows(), 1);
    closeMain();
  });
}

TEST_F(Windows, FewColoursTakeTheirOwnPicturesAndDropTheBackgrounds) {
  for (int depth : {8, 4, 16}) {
    const Replacement colours(Screen::bitsPerPixel, [depth](const QWidget&) { return depth; });
    basStartup::fSplashDone = false;
    play([this, depth] {
      waitOpen(program_->splash);
      EXPECT_EQ(Script::onScreen([] { return Program::ColorDepth; }), depth);
      toPlay();
      const auto background = [this] {
        return Script::onScreen([this] { return !program_->main.Grid->BackTexture().isNull(); });
      };
      EXPECT_EQ(background(), depth != 8) << depth;
      openChooser();
      EXPECT_EQ(visible(program_->main, "fraCover"), depth < 16);
      escape(program_->open);
      openAbout(program_->main);
      escape(program_->splash);
      Script::waitFor("the boards to be shown again",
                      [this] { return !control(program_->main, "fraCover")->isVisible(); });
      EXPECT_EQ(background(), depth >= 16) << depth;
      closeMain();
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
  play([this] {
    const auto expectNames = [](const Form& window) {
      EXPECT_EQ(Script::onScreen([&] { return nameless(window); }), "");
    };
    waitOpen(program_->splash);
    expectNames(program_->splash);
    toPlay();
    expectNames(program_->main);
    openChooser();
    expectNames(program_->open);
    escape(program_->open);
    solve();
    expectNames(program_->finished);
    Script::onScreen([this] {
      const QWidget* focused = program_->finished.Window()->focusWidget();
      EXPECT_TRUE(!focused || focused == program_->finished.Window());
      QTest::keyClick(program_->finished.Window(), Qt::Key_Tab);
      EXPECT_TRUE(control(program_->finished, "imgRetry")->hasFocus());
    });
    Script::post(
        [this] { QTest::keyClick(control(program_->finished, "imgRetry"), Qt::Key_Return); });
    waitClosed(program_->finished);
    closeMain();
  });
}

}  // namespace
