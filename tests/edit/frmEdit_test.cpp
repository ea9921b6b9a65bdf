// The editor in the whole program, offscreen: its board, its menus, and the ways out of it.
#include "platform/HelpProcess.h"
#include "tests/edit/EditorFixture.h"

namespace {

using Editor = EditorFixture;

TEST_F(Editor, TheFirstPieceInTheAirIsToldAboutAndNoOther) {
  inEditor([this] {
    const auto told = [this] {
      return onScreen([this] { return edit().Window()->findChild<QLabel*>("lblCarryHint"); });
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

TEST_F(Editor, LayingAndPickingUpAreChangesAndShiftingAndThrowingAwayAreNone) {
  inEditor([this] {
    EXPECT_EQ(state(), "0");
    lay(8, 1, 1);
    EXPECT_EQ(state(), "1*");
    forgetChanges();
    for (const char* way : {"cmdLeft", "cmdRight", "cmdDown", "cmdDown", "cmdUp"})
      click(edit(), way);  // nothing lies further left than the ring
    onScreen([this] { EXPECT_TRUE(edit().Grid->Grid()->PentoAt(3, 2)); });
    click(edit(), "cmdPento3");
    click(edit(), "cmdPento4");
    EXPECT_EQ(inTheAir(), 4);
    click(edit(), "cmdTrash");
    EXPECT_EQ(inTheAir(), -1);
    EXPECT_EQ(state(), "1");
    onScreen([this] {  // the middle of the cross
      pressBoard(3.5 * edit().Grid->TileWidth(), 3.5 * edit().Grid->TileWidth());
    });
    EXPECT_EQ(state(), "0*");
    forgetChanges();
    menu(edit(), "mnuFileNew");  // does not drop the piece in the hand
    EXPECT_EQ(inTheAir(), 8);
  });
}

TEST_F(Editor, FifteenPiecesAreTheMost) {
  inEditor([this] {
    for (int i = 0; i < 15; ++i) lay(1, 1 + i % 2 * 5, 1 + i / 2);
    ASSERT_EQ(state(), "15*");
    click(edit(), "cmdPento5");
    EXPECT_EQ(answer(), "The puzzle can only contain 15 pieces.");
    EXPECT_NE(inTheAir(), 5);
    onScreen(
        [this] { pressBoard(1.5 * edit().Grid->TileWidth(), 1.5 * edit().Grid->TileWidth()); });
    EXPECT_EQ(state(), "14*");
    click(edit(), "cmdPento5");
    EXPECT_EQ(inTheAir(), 5);
  });
}

TEST_F(Editor, TheTilesFollowTheWindowAndEveryButtonShowsInTheSmallestOne) {
  inEditor([this] {
    for (const auto& [size, tile] : {std::pair{QSize(700, 400), 24},     // the height: 384 / 16
                                     std::pair{QSize(521, 700), 18}}) {  // the width: 280 / 16
      resizeClient(edit(), size);
      EXPECT_EQ(onScreen([this] { return int{edit().Grid->TileWidth()}; }), tile);
    }
    onScreen([this] { edit().Window()->resize(1, 1); });
    waitFor("the smallest size", [this] { return edit().Client()->width() < 521; });
    onScreen([this] {
      const auto buttons = edit().Client()->findChildren<QPushButton*>();
      EXPECT_EQ(buttons.size(), 17);
      for (const QPushButton* button : buttons) {
        EXPECT_TRUE(edit().Client()->rect().contains(button->geometry()));
        EXPECT_FALSE(button->accessibleName().isEmpty() || button->toolTip().isEmpty());
      }
    });
  });
}

TEST_F(Editor, PlayFollowsOnlyAnEditorThatClosedAndItOpensEmptyAgain) {
  play([this] {
    openEditor();
    lay(8, 1, 1);
    menu(edit(), "mnuFilePlay");
    answer(QMessageBox::Cancel);
    waitQuiet();
    EXPECT_TRUE(loaded(edit()) && !loaded(main()));
    menu(edit(), "mnuFilePlay");
    answer(QMessageBox::No);
    waitOpen(chooser());
    EXPECT_FALSE(onScreen([this] { return edit().Loaded() || basTiles::AfterSave; }));
    escape(chooser());
    menu(main(), "mnuViewEdit");
    waitActivated();
    EXPECT_EQ(state(), "0");
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
    EXPECT_TRUE(onScreen([this] { return edit().Grid->BackTexture().isNull(); }));
    EXPECT_FALSE(visible(edit(), "fraCover"));
    openAbout(edit());
    EXPECT_EQ(onScreen([this] { return control(splash(), "imgPlay")->toolTip().toStdString(); }),
              "Back to the editor");
    EXPECT_TRUE(visible(edit(), "fraCover"));
    key(splash(), Qt::Key_Return);
    waitClosed(splash());
    EXPECT_FALSE(visible(edit(), "fraCover"));
  });
}

}  // namespace
