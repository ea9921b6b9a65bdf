// What F3 shows in the play window, and what ends it.
#include "board/PieceMarks.h"
#include "tests/play/PlayFixture.h"

namespace {

/// P, lying in a box of 3 x 2 cells whose free corner is on the left or on the right.
PentoRef lyingP(bool freeLeft, bool freeTop) {
  for (int turns = 0; turns < 4; ++turns)
    for (int mirrorings = 0; mirrorings < 2; ++mirrorings) {
      PENTOGRID box;
      box.SetGridSize(3, 2);
      const PentoRef piece = makePiece(5, turns, mirrorings);
      if (box.AddPento(piece, 0, 0) && box.IsEmpty(freeLeft ? 0 : 2, freeTop ? 0 : 1)) return piece;
    }
  return nullptr;
}

class HintWindow : public PlayFixture {
 protected:
  /// The Rocket is a rectangle of 5 x 2 cells here, to be filled by two P.
  void SetUp() override {
    PlayFixture::SetUp();
    PENTOGRID board = ringedGrid(14, 14);
    ASSERT_TRUE(board.AddPento(lyingP(false, false), 6, 6));
    ASSERT_TRUE(board.AddPento(lyingP(true, true), 8, 6));
    putBytes(folder_ / "puzzles" / "rocket.qzl",
             PuzzleFormat::write(board, PuzzleFormat::kUnlocked));
  }

  PENTOWINDOW& board() { return *main().Grid; }

  void ask() {
    waitFor("the focus", [this] { return main().Window()->isActiveWindow(); });
    key(main(), Qt::Key_F3);
  }

  QLabel* line() { return main().Window()->findChild<QLabel*>("lblHint"); }
  QWidget* marks() { return main().Window()->findChild<QWidget*>("pieceMarks"); }

  /// Asks, waits for these words and returns the outlined pieces.
  std::vector<PENTO> answer(const QString& words) {
    ask();
    waitFor("an answer", [this] { return line() != nullptr; });
    return onScreen([&] {
      EXPECT_EQ(line()->text(), words);
      EXPECT_TRUE(board().rect().contains(marks()->geometry()));
      return static_cast<PieceMarks*>(marks())->pieces();
    });
  }

  bool marked() {
    return onScreen([this] { return line() != nullptr || marks() != nullptr; });
  }

  void pressAt(PENTOWINDOW& control, const QPoint& cell) {
    onScreen([&] {
      control.HandToCell(cell);
      control.PressAtHand();
    });
  }

  void takeFromTray() {
    PENTOWINDOW& tray = *main().PentoPanel;
    const PENTO& piece = *tray.Grid()->PentoCollection().at(0);
    pressAt(tray, {piece.X() + piece.GridX(0), piece.Y() + piece.GridY(0)});
  }

  /// Lays the piece in the air so that it leaves a cell alone.
  void layBadly() {
    onScreen([this] {
      const PentoRef piece = board().FloatingPento();
      const PentoRef bad = lyingP(true, true);
      while (piece->FlipCount != bad->FlipCount) piece->Flip();
      while (piece->RotationCount != bad->RotationCount) piece->Rotate();
      EXPECT_TRUE(board().LayDownAt({6, 6}));
    });
  }
};

/// A cell alone in the middle of a large board: hopeless, and far from all corners.
void makeEndless(PENTOGRID& board, PENTOGRID& tray) {
  constexpr int kMiddle = 6;
  for (PENTOGRID* grid : {&board, &tray}) grid->Clear();
  for (int x = 1; x <= 12; ++x)
    for (int y = 1; y <= 12; ++y)
      if (std::abs(x - kMiddle) + std::abs(y - kMiddle) == 1)
        board.SetGridBackground(x, y);
      else
        board.SetGridEmpty(x, y);
  for (int left = (12 * 12 - 4) / PENTO::kCells; left > 0; --left)
    for (int place = 0; place < tray.Width() * tray.Height(); ++place)
      if (tray.AddPento(makePiece(left % PENTO::kTypes), place % tray.Width(),
                        place / tray.Width()))
        break;
}

TEST_F(HintWindow, GivesUpAfterASecondAndLetsEventsRunMeanwhile) {
  inGame([this] {
    onScreen([this] { makeEndless(*board().Grid(), *main().PentoPanel->Grid()); });
    ask();
    int events = 0;
    waitFor("an answer", [&] { return ++events, line() != nullptr; });
    EXPECT_GT(events, 10);
    EXPECT_EQ(line()->text(), "Not known.");
    EXPECT_EQ(marks(), nullptr);
  });
}

TEST_F(HintWindow, MarksLastUntilTheBoardIsAnother) {
  inGame([this] {
    EXPECT_EQ(answer("This piece fits here.").size(), 1u);
    takeFromTray();
    onScreen([this] { board().TurnQuarters(1); });
    EXPECT_TRUE(marked()) << "the way to the piece's place ended them";
    ask();
    EXPECT_FALSE(marked()) << "F3 again";

    answer("This piece fits here.");  // with a piece in the air
    layBadly();
    EXPECT_FALSE(marked()) << "a laid piece";
    const std::vector<PENTO> gone = answer("No solution is left from here: take these up.");
    ASSERT_EQ(gone.size(), 1u);
    EXPECT_EQ(QPoint(gone[0].X(), gone[0].Y()), QPoint(6, 6));
    pressAt(board(), {7, 6});
    EXPECT_FALSE(marked()) << "a board piece taken up";

    answer("This piece fits here.");
    resizeClient(main(), {700, 560});
    EXPECT_FALSE(marked()) << "a resize";
    answer("This piece fits here.");
    openChooser();
    EXPECT_FALSE(marked()) << "a load";
    escape(chooser());
  });
}

}  // namespace
