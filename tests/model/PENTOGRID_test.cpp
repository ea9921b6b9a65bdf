#include "model/PENTOGRID.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

#include "tests/model/GridCheck.h"
#include "tests/model/Pieces.h"

namespace {

TEST(PentoGrid, AFreshGridIsEmptyAndKnowsItsEdges) {
  PENTOGRID grid;
  EXPECT_FALSE(grid.AddPento(makePiece(1), 0, 0));
  grid.SetGridSize(14, 9);
  EXPECT_EQ(grid.Width(), 14);
  EXPECT_EQ(grid.Height(), 9);
  EXPECT_EQ(cellsOf(grid), std::vector<std::int32_t>(14 * 9, 0));
  EXPECT_NO_THROW(grid.IsEmpty(13, 8));
  for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {14, 0}, {0, 9}}) {
    EXPECT_EQ(grid.PentoID(x, y), 0);
    EXPECT_THROW(grid.IsEmpty(x, y), std::out_of_range);
    EXPECT_THROW(grid.SetGridBackground(x, y), std::out_of_range);
    EXPECT_THROW(grid.PentoAt(x, y), std::out_of_range);
    EXPECT_THROW(grid.RemovePento(x, y), std::out_of_range);
  }
  EXPECT_THROW(grid.RemovePento(0, 0), std::out_of_range);
  EXPECT_THROW(grid.FirstPento(), std::out_of_range);
}

TEST(PentoGrid, ARefusedPieceChangesNothingAndUsesNoId) {
  PENTOGRID grid = ringedGrid(14, 14);
  ASSERT_TRUE(grid.AddPento(makePiece(8), 5, 5));
  const auto before = cellsOf(grid);
  const PentoRef piece = makePiece(7);  // its first cell lies right of its corner
  piece->SetPosition(77, 78);
  constexpr int kFar = std::numeric_limits<int>::max();
  const std::vector<std::pair<int, int>> refused{{0, 5},    {11, 5},       {5, 13},  {5, 6},
                                                 {-1, 3},   {3, -1},       {13, 13}, {kFar, 3},
                                                 {3, kFar}, {-kFar, -kFar}};
  for (const auto& [x, y] : refused) EXPECT_FALSE(grid.AddPento(piece, x, y)) << x << ", " << y;
  EXPECT_EQ(cellsOf(grid), before);
  EXPECT_EQ(grid.PentoCollection().Count(), 1u);
  EXPECT_EQ(piece->X(), 77);
  ASSERT_TRUE(grid.AddPento(piece, 9, 2));
  EXPECT_EQ(grid.PentoID(10, 2), 2);
  EXPECT_EQ(piece->X(), 9);
  EXPECT_EQ(piece->Y(), 2);
}

TEST(PentoGrid, APieceIsTakenOffByAnyOfItsCellsAndComesBackUnderANewId) {
  PENTOGRID grid = ringedGrid(14, 14);
  const auto empty = cellsOf(grid);
  std::int32_t id = 0;
  for (int type = 0; type < PENTO::kTypes; ++type) {
    for (int i = 0; i < PENTO::kCells; ++i) {
      const PentoRef piece = makePiece(type, type % 4, type % 2);
      ASSERT_TRUE(grid.AddPento(piece, 4, 6));
      const int x = 4 + piece->GridX(i), y = 6 + piece->GridY(i);
      EXPECT_EQ(grid.PentoID(x, y), ++id);
      piece->SetPosition(200, 300);  // where it floated meanwhile
      EXPECT_EQ(grid.RemovePento(x, y), piece);
      EXPECT_EQ(piece->X(), 4);
      EXPECT_EQ(piece->Y(), 6);
      EXPECT_EQ(cellsOf(grid), empty);
    }
  }
}

TEST(PentoGrid, AWalkFollowsThePlacingOrderAndClearStartsAnew) {
  PENTOGRID grid = ringedGrid(14, 14);
  const auto empty = cellsOf(grid);
  const std::vector<PentoRef> pieces{makePiece(1), makePiece(5), makePiece(8), makePiece(10)};
  for (std::size_t i = 0; i < pieces.size(); ++i)
    ASSERT_TRUE(grid.AddPento(pieces[i], 2, 1 + 3 * static_cast<int>(i)));
  grid.RemovePento(pieces[1]->X(), pieces[1]->Y());
  EXPECT_EQ(grid.FirstPento(), pieces[0]);
  EXPECT_EQ(grid.NextPento(), pieces[2]);
  EXPECT_EQ(grid.NextPento(), pieces[3]);
  EXPECT_EQ(grid.NextPento(), nullptr);
  grid.Clear();
  EXPECT_EQ(cellsOf(grid), empty);
  EXPECT_EQ(grid.PentoCollection().Count(), 0u);
  EXPECT_EQ(pieces[3]->Y(), 10);
  ASSERT_TRUE(grid.AddPento(pieces[3], 3, 3));
  EXPECT_EQ(grid.PentoID(3, 3), 1);
}

TEST(PentoGrid, ANewSizeKeepsThePiecesInTheCollection) {
  PENTOGRID grid;
  grid.SetGridSize(14, 14);
  ASSERT_TRUE(grid.AddPento(makePiece(3), 4, 4));
  grid.SetGridSize(14, 14);
  EXPECT_TRUE(grid.IsEmpty(4, 4));
  EXPECT_EQ(grid.PentoCollection().Count(), 1u);
  ASSERT_TRUE(grid.AddPento(makePiece(3), 4, 4));
  EXPECT_EQ(grid.PentoID(4, 4), 2);
}

struct Shift {
  void (PENTOGRID::*move)();
  int dx, dy;
};
constexpr Shift kShifts[] = {{&PENTOGRID::MoveLeft, -1, 0},
                             {&PENTOGRID::MoveRight, 1, 0},
                             {&PENTOGRID::MoveUp, 0, -1},
                             {&PENTOGRID::MoveDown, 0, 1}};

/// The shifted grid worked out cell by cell: the slow and obvious way.
std::vector<std::int32_t> shifted(const PENTOGRID& grid, int dx, int dy) {
  std::vector<std::int32_t> cells;
  for (int x = 0; x < grid.Width(); ++x) {
    for (int y = 0; y < grid.Height(); ++y) {
      const auto inner = [&](int column, int row) {
        return column > 0 && row > 0 && column < grid.Width() - 1 && row < grid.Height() - 1;
      };
      if (!inner(x, y))
        cells.push_back(grid.PentoID(x, y));
      else
        cells.push_back(inner(x - dx, y - dy) ? grid.PentoID(x - dx, y - dy) : 0);
    }
  }
  return cells;
}

TEST(PentoGrid, AShiftCarriesPiecesAndBackgroundToTheEdgeAndNoFurther) {
  for (const Shift& shift : kShifts) {
    PENTOGRID grid = ringedGrid(12, 9);
    grid.SetGridBackground(7, 5);  // inside the ring: it moves too
    const PentoRef piece = makePiece(7);
    ASSERT_TRUE(grid.AddPento(piece, 4, 3));
    int steps = 0;
    for (;; ++steps) {
      const auto before = cellsOf(grid);
      const auto expected = shifted(grid, shift.dx, shift.dy);
      const int x = piece->X(), y = piece->Y();
      (grid.*shift.move)();
      if (cellsOf(grid) == before) {
        EXPECT_EQ(piece->X(), x);
        EXPECT_EQ(piece->Y(), y);
        break;
      }
      EXPECT_EQ(cellsOf(grid), expected);
      EXPECT_EQ(piece->X(), x + shift.dx);
      EXPECT_EQ(piece->Y(), y + shift.dy);
      expectValidGrid(grid);
    }
    // From column 4 to 1, from column 7 to 10, from row 3 to 1, from row 5 to 7.
    EXPECT_EQ(steps, shift.dx != 0 ? 3 : 2);
  }
}

TEST(PentoGrid, ALongRandomGameStaysSound) {
  constexpr unsigned kSeed = 20;
  SCOPED_TRACE(kSeed);
  std::mt19937 random(kSeed);
  const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
  PENTOGRID grid = ringedGrid(14, 14);
  std::size_t placed = 0, shifts = 0;
  for (int step = 0; step < 4000; ++step) {
    const int x = below(18) - 2, y = below(18) - 2;
    const std::size_t before = grid.PentoCollection().Count();
    const int action = below(10);
    if (action < 6) {
      const bool added = grid.AddPento(makePiece(below(13), below(4), below(2)), x, y);
      ASSERT_EQ(grid.PentoCollection().Count(), before + (added ? 1 : 0));
      placed += added ? 1 : 0;
    } else if (action < 8 && grid.PentoID(x, y) > 0) {
      grid.RemovePento(x, y);
      ASSERT_EQ(grid.PentoCollection().Count(), before - 1);
    } else if (action < 9) {
      const auto cells = cellsOf(grid);
      (grid.*kShifts[below(4)].move)();
      shifts += cellsOf(grid) != cells ? 1 : 0;
    } else if (below(20) == 0) {
      grid.Clear();
    }
    ASSERT_NO_FATAL_FAILURE(expectValidGrid(grid)) << "step " << step;
  }
  EXPECT_GT(placed, 100u);  // the game was one
  EXPECT_GT(shifts, 10u);
}

}  // namespace
