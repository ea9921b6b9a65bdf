// Pieces picked up, carried, turned, mirrored and laid down with real mouse and key events.
#include "tests/board/BoardFixture.h"

namespace {

class Handling : public BoardFixture {
 protected:
  /// Picks the piece at a cell of the tray up and brings it over the board.
  void carryToBoard(int column, int row, const QPoint& target) {
    move(cell(tray_, column, row));
    click(cell(tray_, column, row));
    ASSERT_NE(tray_.FloatingPento(), nullptr);
    move(target);
  }

  /// Where the pointer is when the floating piece's corner stands at a pixel of the board.
  QPoint over(int x, int y) {
    const PentoRef piece = board_.FloatingPento();
    return at(board_, x + kBoardTile * piece->Width() / 2, y + kBoardTile * piece->Height() / 2);
  }
};

TEST_F(Handling, ADropThatIsRefusedKeepsThePieceInTheAirAndTheWindowsAreTold) {
  const PentoRef piece = lay(trayGrid_, 8, 2, 2);  // X
  carryToBoard(3, 3, cell(board_, 5, 5));
  EXPECT_EQ(board_.FloatingPento(), piece);
  move(over(-20, 90));  // truncated toward column 0, which is background
  click(over(-20, 90));
  EXPECT_EQ(board_.EmptyCount(), 144);
  move(over(90, 90));
  click(over(90, 90));
  EXPECT_EQ(board_.EmptyCount(), 144 - 5);
  EXPECT_EQ(tray_.FloatingPento(), nullptr);
  EXPECT_EQ(board_.FloatingPento(), piece) << "the reference stays after a drop";
  click(cell(board_, 4, 4));
  move(cell(tray_, 4, 5));
  click(cell(tray_, 4, 5));
  EXPECT_EQ(trayGrid_.PentoCollection().Count(), 1U);
  EXPECT_EQ(events_, (std::vector<std::string>{"tray Float", "board DropError", "board Drop",
                                               "board Float", "tray Drop"}));
}

TEST_F(Handling, ADropGoesToTheNearestCellWithHalvesUpward) {
  for (const auto& [shift, column] : {std::pair{14, 4}, std::pair{15, 5}, std::pair{-15, 4}}) {
    const PentoRef piece = lay(trayGrid_, 8, 2, 2);
    carryToBoard(3, 3, cell(board_, 5, 5));
    move(over(4 * kBoardTile + shift, 4 * kBoardTile));
    click(over(4 * kBoardTile + shift, 4 * kBoardTile));
    EXPECT_EQ(piece->X(), column) << shift;
    boardGrid_.Clear();
  }
}

TEST_F(Handling, ButtonsAndTypedTextTurnAndMirrorOnceEach) {
  const PentoRef piece = lay(trayGrid_, 2, 2, 2);  // L, 4 x 2
  carryToBoard(2, 2, cell(board_, 6, 6));
  const QPoint here = cell(board_, 6, 6);
  click(here, Qt::RightButton);
  EXPECT_EQ(piece->RotationCount, 1);
  click(here, Qt::MiddleButton);
  EXPECT_EQ(piece->FlipCount, 1);
  auto* keys = board_.findChild<QLineEdit*>("txtKey");
  EXPECT_TRUE(keys->hasFocus());
  QTest::keyClicks(keys, "a1");
  EXPECT_EQ(piece->FlipCount, 1) << "two keys";
  QTest::keyClick(keys, Qt::Key_Backspace);
  EXPECT_EQ(piece->FlipCount, 0);
  for (Qt::Key key : {Qt::Key_Left, Qt::Key_Shift, Qt::Key_F5, Qt::Key_Return})
    QTest::keyClick(keys, key);
  EXPECT_EQ(piece->FlipCount, 0) << "these change no text";

  for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseDClick(window_.windowHandle(), button, {}, here);  // press, release, press, release
    QTest::qWait(0);
  }
  EXPECT_EQ(piece->RotationCount, 3);
  EXPECT_EQ(piece->FlipCount, 0) << "mirrored twice";
  expectSameAsFullRepaint(board_);
}

TEST_F(Handling, EasyModeAsksBeforeTurningAndMirroringOneControlAtATime) {
  const PentoRef piece = lay(trayGrid_, 7, 2, 2);
  board_.fEasyMode = tray_.fEasyMode = true;
  carryToBoard(3, 3, cell(board_, 6, 6));
  const QPoint here = cell(board_, 6, 6);
  click(here, Qt::MiddleButton);
  EXPECT_EQ(piece->FlipCount, 0);

  answerNext(QMessageBox::No);
  click(here, Qt::RightButton);
  EXPECT_EQ(
      question_,
      "In easy mode, the pentominoes don't need to be rotated or flipped.  Are you sure you want "
      "to rotate?");
  EXPECT_TRUE(no_is_default_);
  EXPECT_EQ(piece->RotationCount, 0);
  EXPECT_TRUE(board_.fEasyMode);

  answerNext(QMessageBox::Yes);
  QTest::keyClicks(board_.findChild<QLineEdit*>("txtKey"), "x");
  EXPECT_TRUE(question_.endsWith("want to flip?"));
  EXPECT_EQ(piece->FlipCount, 1);
  EXPECT_FALSE(board_.fEasyMode);
  EXPECT_TRUE(tray_.fEasyMode);
}

TEST_F(Handling, WithoutPickupThePieceStaysOnTheGrid) {
  lay(trayGrid_, 8, 2, 2);
  tray_.Pickup(false);
  click(cell(tray_, 3, 3));
  EXPECT_NE(tray_.FloatingPento(), nullptr);
  EXPECT_EQ(trayGrid_.PentoCollection().Count(), 1U);
}

TEST_F(Handling, OutsideTheControlEveryTickReportsAndTheNextEntryCaptures) {
  lay(trayGrid_, 8, 2, 2);
  int captures = 0, uncaptures = 0;
  board_.Capture = [&] { ++captures; };
  board_.Uncapture = [&] { ++uncaptures; };
  move(cell(board_, 5, 5));
  EXPECT_EQ(captures, 1);
  move(cell(board_, 6, 5));
  EXPECT_EQ(captures, 1) << "once until the pointer has left";
  move(cell(tray_, 5, 5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return uncaptures > 2; }));
  move(cell(board_, 5, 5));
  EXPECT_EQ(captures, 2);

  board_.hide();  // its clock stands still while the tray's goes on
  uncaptures = 0;
  int ticks = 0;
  tray_.Uncapture = [&] { ++ticks; };
  move(cell(tray_, 5, 5));
  move(QPoint(235, 260));  // between the two
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 3; }));
  EXPECT_EQ(uncaptures, 0);
}

TEST_F(Handling, ADropMayCloseTheWindow) {
  lay(trayGrid_, 8, 2, 2);
  carryToBoard(3, 3, cell(board_, 5, 5));
  board_.Drop = [this] { window_.setProperty("formUnloaded", true); };
  click(cell(board_, 5, 5));
  EXPECT_EQ(boardGrid_.PentoCollection().Count(), 1U);
}

TEST_F(Handling, TheBoardCountsMovesAndStoresItsProperties) {
  EXPECT_EQ(board_.EmptyCount(), 144);
  const PentoRef piece = lay(boardGrid_, 8, 1, 1);
  board_.MoveLeft();
  EXPECT_EQ(piece->X(), 1);
  board_.MoveRight();
  EXPECT_EQ(piece->X(), 2);
  EXPECT_EQ(board_.EmptyCount(), 139);
  expectSameAsFullRepaint(board_);

  PENTOWINDOW fresh(&window_);
  fresh.ReadProperties(PropertyBag());
  EXPECT_EQ(fresh.TileWidth(), 25);
  EXPECT_TRUE(fresh.Pickup());
  EXPECT_EQ(fresh.BorderStyle(), 1);
  PropertyBag bag;
  fresh.WriteProperties(bag);
  for (const char* key : {"BlockTexture", "BackTexture", "BorderStyle", "Pickup", "DisplayHint"})
    EXPECT_FALSE(bag.contains(key)) << key;
  fresh.Pickup(false);
  fresh.BorderStyle(0);
  fresh.WriteProperties(bag);
  PENTOWINDOW again(&window_);
  again.ReadProperties(bag);
  EXPECT_FALSE(again.Pickup());
  EXPECT_EQ(again.BorderStyle(), 0);
}

}  // namespace
