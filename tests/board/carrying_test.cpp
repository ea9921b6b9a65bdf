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

TEST_F(Carrying, ThePieceSlidesOffWithAButtonHeld) {
  int uncaptures = 0;
  tray_.Uncapture = [&] { ++uncaptures; };
  press(cell(tray_, 3, 3));
  QTest::qWait(0);
  move(cell(tray_, 4, 4));
  EXPECT_EQ(uncaptures, 0);
  const QPoint outside(235, 260);
  move(outside);  // to the tray, which has the press; the toolkit tells of no leaving
  const QPoint corner = outside - tray_.pos() - surface(tray_).pos() - QPoint(30, 30);
  EXPECT_TRUE(QTest::qWaitFor([&] { return uncaptures > 0 && piece_->X() == corner.x(); }));
  EXPECT_EQ(piece_->Y(), corner.y());
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

/// Seen: such a drop could only be heard, and in the tray not even that.
TEST_F(Carrying, ARefusedDropIsMarkedUntilTheNextPress) {
  lay(trayGrid_, 1, 2, 7);
  QWidget* mark = tray_.findChild<QWidget*>("refusal");
  click(cell(tray_, 3, 3));
  move(cell(tray_, 4, 7));
  click(cell(tray_, 4, 7));
  EXPECT_EQ(events_.back(), "tray DropError");
  ASSERT_TRUE(mark->isVisible());
  const QPoint before = mark->pos();
  move(cell(tray_, 5, 7));
  EXPECT_EQ(mark->pos(), before + QPoint(kTrayTile, 0)) << "it moves with the piece";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !mark->isVisible(); })) << "and goes by itself";
  click(cell(tray_, 5, 7));
  ASSERT_TRUE(mark->isVisible());
  click(cell(tray_, 5, 3), Qt::RightButton);
  EXPECT_FALSE(mark->isVisible());
}

TEST_F(Carrying, MovesOverTheMarginCaptureEveryTimeAndTheCursorShowsThePiece) {
  click(cell(tray_, 3, 3));
  int captures = 0;
  board_.Capture = [&] {
    ++captures;
    tray_.HideFloatingPento();  // or the tray's tick moves the shared piece, too
  };
  for (int x : {250, 252}) move(QPoint(x, 20));
  EXPECT_EQ(captures, 2);
  EXPECT_EQ(piece_->X(), 252 - board_.x() - surface(board_).x() - 45);
  EXPECT_EQ(piece_->Y(), 20 - surface(board_).y() - 45);
  EXPECT_EQ(board_.cursor().pixmap().toImage().size(), QSize(3 * kBoardTile, 3 * kBoardTile));
  EXPECT_EQ(window_.cursor().shape(), Qt::ClosedHandCursor) << "beside the boards";
  move(cell(board_, 5, 5));
  click(cell(board_, 5, 5));
  EXPECT_EQ(board_.cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(window_.cursor().shape(), Qt::ArrowCursor);
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
