// The editor in the whole program, offscreen: its board, its menus, and the ways out of it.
#include "platform/HelpProcess.h"
#include "tests/edit/EditorFixture.h"

namespace {

using Editor = EditorFixture;

TEST_F(Editor, TheFirstPieceInTheAirIsToldAboutAndNoOther) {
  inEditor([this] {
    const auto told = [this] {
      return Script::onScreen(
          [this] { return edit().Window()->findChild<QLabel*>("lblCarryHint") != nullptr; });
    };
    EXPECT_FALSE(told());
    click(edit(), "cmdPento3");
    EXPECT_TRUE(visible(edit(), "lblCarryHint"));
    click(edit(), "cmdTrash");
    EXPECT_FALSE(told());
    click(edit(), "cmdPento3");
    EXPECT_FALSE(told());
  });
}

TEST_F(Editor, PiecesAreLaidShiftedPickedUpAndThrownAway) {
  inEditor([this] {
    EXPECT_FALSE(changed());
    lay(8, 1, 1);
    EXPECT_TRUE(changed());
    Script::onScreen([this] { edit().fFileChanged = false; });
    click(edit(), "cmdLeft");  // nothing lies further left than the ring
    click(edit(), "cmdRight");
    click(edit(), "cmdDown");
    click(edit(), "cmdDown");
    click(edit(), "cmdUp");
    Script::onScreen([this] {
      const PentoRef piece = edit().Grid->Grid()->PentoCollection().at(0);
      EXPECT_EQ(QPoint(piece->X(), piece->Y()), QPoint(2, 2));
    });
    click(edit(), "cmdPento3");
    click(edit(), "cmdPento4");
    EXPECT_EQ(Script::onScreen([this] { return edit().Grid->FloatingPento()->PentoType(); }), 4);
    click(edit(), "cmdTrash");
    EXPECT_FALSE(Script::onScreen([this] { return bool{edit().Grid->FloatingPento()}; }));
    EXPECT_FALSE(changed());

    Script::onScreen([this] {  // the middle of the cross
      pressBoard(3.5 * edit().Grid->TileWidth(), 3.5 * edit().Grid->TileWidth());
    });
    EXPECT_TRUE(changed());
    EXPECT_EQ(pieces(), 0U);
    Script::onScreen([this] { edit().fFileChanged = false; });
    menu(edit(), "mnuFileNew");  // does not drop the piece in the hand
    EXPECT_TRUE(Script::onScreen([this] { return bool{edit().Grid->FloatingPento()}; }));
  });
}

TEST_F(Editor, KeysMirrorThePieceAfterItsButtonWasClicked) {
  inEditor([this] {
    Script::onScreen([this] { control(edit(), "cmdPento0")->setFocus(); });
    click(edit(), "cmdPento2");
    Script::onScreen([this] {
      QTest::mouseMove(control(edit(), "pctFore"), QPoint(90, 90));
      QTest::keyClick(edit().Window()->focusWidget(), Qt::Key_Space);
      EXPECT_EQ(edit().Grid->FloatingPento()->PentoType(), 2);
      EXPECT_EQ(edit().Grid->FloatingPento()->FlipCount, 1);
    });
  });
}

TEST_F(Editor, FifteenPiecesAreTheMost) {
  inEditor([this] {
    for (int i = 0; i < 15; ++i) lay(1, 1 + i % 2 * 5, 1 + i / 2);
    ASSERT_EQ(pieces(), 15U);
    click(edit(), "cmdPento5");
    EXPECT_EQ(answer(), "The puzzle can only contain 15 pieces.");
    Script::onScreen([this] {
      EXPECT_FALSE(edit().Grid->FloatingPento() && edit().Grid->FloatingPento()->PentoType() == 5);
      pressBoard(1.5 * edit().Grid->TileWidth(), 1.5 * edit().Grid->TileWidth());
    });
    EXPECT_EQ(pieces(), 14U);
    click(edit(), "cmdPento5");
    EXPECT_EQ(Script::onScreen([this] { return edit().Grid->FloatingPento()->PentoType(); }), 5);
  });
}

TEST_F(Editor, TheLayoutFollowsItsRuleAndEveryButtonShowsInTheSmallestWindow) {
  inEditor([this] {
    resizeClient(edit(), {700, 400});  // by the height: 384 / 16
    Script::onScreen([this] {
      EXPECT_EQ(edit().Grid->geometry(), QRect(241, 8, 459, 384));
      EXPECT_EQ(edit().Grid->TileWidth(), 24);
    });
    resizeClient(edit(), {521, 700});  // by the width: 280 / 16 = 17.5, to the even neighbour
    Script::onScreen([this] {
      EXPECT_EQ(edit().Grid->TileWidth(), 18);
      EXPECT_FALSE(control(edit(), "fraCover")->isVisible());
      EXPECT_EQ(control(edit(), "cmdPento5")->geometry(), QRect(160, 72, 73, 48));
      edit().Window()->resize(1, 1);
    });
    Script::waitFor("the smallest size", [this] { return edit().Client()->width() < 521; });
    Script::onScreen([this] {
      const auto buttons = edit().Client()->findChildren<QPushButton*>();
      EXPECT_EQ(buttons.size(), 17);
      for (const QPushButton* button : buttons) {
        EXPECT_TRUE(edit().Client()->rect().contains(button->geometry()));
        EXPECT_FALSE(button->accessibleName().isEmpty());
        EXPECT_FALSE(button->toolTip().isEmpty());
      }
    });
  });
}

TEST_F(Editor, TheMenusHaveTheirCaptions) {
  inEditor([this] {
    EXPECT_EQ(captions(edit(), {"mnuFile", "mnuHelp"}),
              "File|New|Open...|-|Save|Save as...|-|Play...|-|Close|"
              "Help|Contents...|How to create puzzles...|-|About...");
  });
}

TEST_F(Editor, PlayFollowsOnlyAnEditorThatClosedAndItOpensEmptyAgain) {
  play([this] {
    openEditor();
    lay(8, 1, 1);
    menu(edit(), "mnuFilePlay");
    answer(QMessageBox::Cancel);
    waitQuiet();
    EXPECT_TRUE(Script::onScreen([this] { return edit().Loaded() && !program_->main.Loaded(); }));
    menu(edit(), "mnuFilePlay");
    answer(QMessageBox::No);
    waitOpen(program_->open);
    EXPECT_FALSE(Script::onScreen([this] { return edit().Loaded() || basTiles::AfterSave; }));
    escape(program_->open);
    menu(program_->main, "mnuViewEdit");
    waitActivated();
    EXPECT_EQ(pieces(), 0U);
    EXPECT_FALSE(changed());
    EXPECT_EQ(current(), "");
    leave();
  });
}

TEST_F(Editor, HelpGoesToItsTopics) {
  std::vector<QStringList> asked;
  const Replacement viewer(HelpProcess::Start, [&](const QString&, const QStringList& arguments) {
    asked.push_back(arguments);
    return true;
  });
  inEditor([&] {
    menu(edit(), "mnuHelpContents");
    menu(edit(), "mnuHelpCreate");
    key(edit(), Qt::Key_F1);
  });
  const QString file = QString::fromStdString(Program::HelpFile.string());
  EXPECT_TRUE(file.endsWith("/Quinzolith.chm"));
  EXPECT_EQ(asked, (std::vector<QStringList>{{file}, {file, "1300"}, {file, "1300"}}));
}

TEST_F(Editor, WithFewColoursTheBackgroundGoesAndTheAboutBoxIsShownOverTheCover) {
  const Replacement fewColours(Screen::bitsPerPixel, [](const QWidget&) { return 8; });
  inEditor([this] {
    EXPECT_TRUE(Script::onScreen([this] { return edit().Grid->BackTexture().isNull(); }));
    EXPECT_FALSE(visible(edit(), "fraCover"));
    openAbout(edit());
    EXPECT_EQ(Script::onScreen(
                  [this] { return control(program_->splash, "imgPlay")->toolTip().toStdString(); }),
              "Back to the editor");
    EXPECT_TRUE(visible(edit(), "fraCover"));
    key(program_->splash, Qt::Key_Return);
    waitClosed(program_->splash);
    EXPECT_FALSE(visible(edit(), "fraCover"));
  });
}

}  // namespace
