// Who shows the carried piece, where it goes beyond the surface, and the cursors on the way.
#include "tests/board/BoardFixture.h"

namespace {

class Carrying : public BoardFixture {
 protected:
  void SetUp() override {
    BoardFixture::SetUp();
    piece_ = lay(trayGrid_, 8, 2, 2);
    tray_.PaintAll();
    board_.PaintAll();
    bareBoard_ = shown(board_);
  }

  /// The arrow, or for a picture whether there is anything to see of it.
  std::string cursor(PENTOWINDOW& control) {
    const QCursor cursor = surface(control).cursor();
    if (cursor.shape() == Qt::ArrowCursor) return "arrow";
    QImage empty = cursor.pixmap().toImage();
    empty.fill(Qt::transparent);
    return cursor.pixmap().toImage() == empty ? "clear" : "hand";
  }

  PentoRef piece_;
  QImage bareBoard_;
};

TEST_F(Carrying, OnlyTheControlUnderThePointerShowsThePiece) {
  trayGrid_.RemovePento(3, 3);
  tray_.PaintAll();
  const QImage bareTray = shown(tray_);
  trayGrid_.AddPento(piece_, 2, 2);
  click(cell(tray_, 3, 3));
  move(cell(tray_, 4, 4));
  EXPECT_NE(shown(tray_), bareTray);
  EXPECT_EQ(shown(board_), bareBoard_);
  move(cell(board_, 5, 5));
  EXPECT_EQ(shown(tray_), bareTray);
  EXPECT_NE(shown(board_), bareBoard_);
}

TEST_F(Carrying, ThePieceSlidesOffTheEdgeWithThePointer) {
  click(cell(tray_, 3, 3));
  move(cell(board_, 5, 5));
  const QPoint outside(235, 260);  // between the two controls, which nobody reports
  QCursor::setPos(window_.mapToGlobal(outside));
  const int left = (outside.x() - board_.x()) - surface(board_).x() - 45;  // half of three tiles
  EXPECT_TRUE(QTest::qWaitFor([&] { return piece_->X() == left; })) << piece_->X();
}

TEST_F(Carrying, ThePieceSlidesOffWithAButtonHeld) {
  int uncaptures = 0;
  tray_.Uncapture = [&] { ++uncaptures; };
  press(cell(tray_, 3, 3));
  QTest::qWait(0);
  move(cell(tray_, 4, 4));
  EXPECT_EQ(uncaptures, 0);
  const QPoint outside(235, 260);
  move(outside);  // to the tray, which has the press; the toolkit tells of no leaving
  const int left = outside.x() - tray_.x() - surface(tray_).x() - 30;
  EXPECT_TRUE(QTest::qWaitFor([&] { return uncaptures > 0 && piece_->X() == left; }));
  release(outside);
}

TEST_F(Carrying, TheCursorTellsWhatAPressWouldDo) {
  move(cell(board_, 5, 5));
  EXPECT_EQ(cursor(tray_), "arrow");
  move(cell(tray_, 3, 3));
  EXPECT_EQ(cursor(tray_), "hand");
  move(cell(tray_, 6, 6));
  EXPECT_EQ(cursor(tray_), "arrow");
  click(cell(tray_, 3, 3));
  EXPECT_EQ(cursor(tray_), "clear");
  move(cell(board_, 5, 5));
  click(cell(board_, 5, 5));
  EXPECT_EQ(cursor(board_), "arrow");
  EXPECT_EQ(cursor(tray_), "arrow");
}

TEST_F(Carrying, APieceTurnedInTheTrayAndSwungOntoTheBoardDoesNotThrowTheCursor) {
  const PentoRef bar = lay(trayGrid_, 1, 2, 7);
  click(cell(tray_, 3, 7));
  click(cell(tray_, 3, 7), Qt::RightButton);
  const QPoint to = cell(board_, 9, 4);
  move(to);  // in one step: the board is entered before any tick has seen the pointer leave
  EXPECT_EQ(window_.mapFromGlobal(QCursor::pos()), to);
  click(to);
  EXPECT_EQ(boardGrid_.PentoAt(9, 4), bar);
}

TEST_F(Carrying, ANewTileSizeDoesNotThrowTheCursorEither) {
  click(cell(tray_, 3, 3));
  move(cell(board_, 9, 9));
  board_.TileSize(20);
  board_.PaintAll();
  const QPoint to = cell(board_, 8, 8);
  move(to);
  EXPECT_EQ(window_.mapFromGlobal(QCursor::pos()), to);
  expectSameAsFullRepaint(board_);
  click(to);
  EXPECT_EQ(boardGrid_.PentoAt(8, 8), piece_);
}

TEST_F(Carrying, MovesOverTheMarginCaptureEveryTimeAndCarryThePiece) {
  click(cell(tray_, 3, 3));
  int captures = 0;
  board_.Capture = [&] {
    ++captures;
    tray_.HideFloatingPento();  // or the tray's tick moves the shared piece, too
  };
  move(QPoint(250, 20));
  move(QPoint(252, 20));
  EXPECT_EQ(captures, 2);
  EXPECT_EQ(piece_->X(), 252 - board_.x() - surface(board_).x() - 45);
  EXPECT_EQ(piece_->Y(), 20 - surface(board_).y() - 45);
}

TEST_F(Carrying, InAWindowThatIsNotActiveThePieceDisappears) {
  click(cell(tray_, 3, 3));
  move(cell(board_, 5, 5));
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  move(cell(board_, 6, 5));
  EXPECT_EQ(shown(board_), bareBoard_);
  EXPECT_EQ(cursor(board_), "arrow");
  EXPECT_NE(board_.FloatingPento(), nullptr) << "it floats on, unseen";
}

}  // namespace
