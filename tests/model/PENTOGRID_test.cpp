#include "model/PENTOGRID.h"

#include <gtest/gtest.h>

#include <algorithm>
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

/// What a grid's cells hold after an operation, worked out cell by cell: the slow and obvious way.
struct Expected {
  explicit Expected(const PENTOGRID& grid)
      : width(grid.Width()), height(grid.Height()), cells(cellsOf(grid)) {}

  /// Whether the piece could be laid, and then is.
  bool lay(const PENTO& piece, int x, int y, std::int32_t id) {
    auto laid = cells;
    for (int i = 0; i < PENTO::kCells; ++i) {
      const long column = long{x} + piece.GridX(i), row = long{y} + piece.GridY(i);
      if (column < 0 || row < 0 || column >= width || row >= height) return false;
      const auto at = static_cast<std::size_t>(column * height + row);
      if (cells[at] != 0) return false;
      laid[at] = id;
    }
    cells = laid;
    return true;
  }

  void take(std::int32_t id) { std::replace(cells.begin(), cells.end(), id, 0); }
  void clear() {
    std::replace_if(
        cells.begin(), cells.end(), [](std::int32_t id) { return id > 0; }, 0);
  }

  /// What lies within the ring goes a cell further, unless something would leave.
  bool shift(int dx, int dy) {
    auto shifted = cells;
    for (int x = 1; x < width - 1; ++x) {
      for (int y = 1; y < height - 1; ++y) {
        if (!inner(x + dx, y + dy) && at(x, y) != 0) return false;
        shifted[index(x, y)] = inner(x - dx, y - dy) ? at(x - dx, y - dy) : 0;
      }
    }
    cells = shifted;
    return true;
  }

  bool inner(int x, int y) const { return x > 0 && y > 0 && x < width - 1 && y < height - 1; }
  std::size_t index(int x, int y) const { return static_cast<std::size_t>(x * height + y); }
  std::int32_t at(int x, int y) const { return cells[index(x, y)]; }

  int width, height;
  std::vector<std::int32_t> cells;
};

std::pair<int, int> cornerOf(const PENTO& piece) {
  return {piece.X(), piece.Y()};
}

TEST(PentoGrid, ALongRandomGameFollowsTheRulesCellByCell) {
  std::mt19937 random(20);
  const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
  const auto place = [&] {
    constexpr int kFar = std::numeric_limits<int>::max();
    const int odd = below(40);
    return odd == 0 ? kFar : odd == 1 ? -kFar : below(18) - 2;
  };
  PENTOGRID grid = ringedGrid(14, 11);
  grid.SetGridBackground(7, 5);  // inside the ring: it moves too
  std::int32_t lastId = 0;
  int laid = 0, refused = 0, taken = 0, shifted = 0, stuck = 0;
  for (int step = 0; step < 6000; ++step) {
    SCOPED_TRACE(step);
    const int x = place(), y = place(), action = below(100);
    Expected expected(grid);
    if (action < 45) {
      const PentoRef piece = makePiece(below(13), below(4), below(2));
      piece->SetPosition(77, 78);
      const bool fits = expected.lay(*piece, x, y, lastId + 1);
      ASSERT_EQ(grid.AddPento(piece, x, y), fits);
      ASSERT_EQ(cornerOf(*piece), fits ? std::pair(x, y) : std::pair(77, 78));
      lastId += fits;
      ++(fits ? laid : refused);
    } else if (action < 80 && grid.PentoID(x, y) > 0) {
      const PentoRef piece = grid.PentoAt(x, y);
      const PENTO before = *piece;
      piece->SetPosition(200, 300);  // where it floated meanwhile
      expected.take(grid.PentoID(x, y));
      ASSERT_EQ(grid.RemovePento(x, y), piece);
      ASSERT_EQ(cornerOf(*piece), cornerOf(before));
      ++taken;
    } else if (action < 99) {
      const Shift& shift = kShifts[below(4)];
      ++(expected.shift(shift.dx, shift.dy) ? shifted : stuck);
      (grid.*shift.move)();
    } else {
      expected.clear();
      grid.Clear();
      lastId = 0;
    }
    ASSERT_EQ(cellsOf(grid), expected.cells);
    ASSERT_NO_FATAL_FAILURE(expectValidGrid(grid));
  }
  for (const int times : {laid, refused, taken, shifted, stuck}) EXPECT_GT(times, 50);
}

}  // namespace
