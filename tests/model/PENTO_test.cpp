#include "model/PENTO.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <vector>

namespace {

PENTO fresh(int type) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(type));
  return piece;
}

std::vector<std::pair<int, int>> cellsOf(const PENTO& piece) {
  std::vector<std::pair<int, int>> cells;
  for (int i = 0; i < PENTO::kCells; ++i) cells.emplace_back(piece.GridX(i), piece.GridY(i));
  return cells;
}

TEST(Pento, EveryTypeHasItsExtent) {
  constexpr int widths[] = {4, 5, 4, 3, 3, 3, 3, 3, 3, 4, 3, 3};
  constexpr int heights[] = {2, 1, 2, 3, 3, 2, 3, 3, 3, 2, 2, 3};
  for (int type = 0; type < PENTO::kTypes; ++type) {
    EXPECT_EQ(fresh(type).Width(), widths[type]) << pentominoLetter(type);
    EXPECT_EQ(fresh(type).Height(), heights[type]) << pentominoLetter(type);
  }
}

TEST(Pento, CountersRebuildTheOrientationAfterAnyTurnsAndMirrorings) {
  std::mt19937 random(7);
  for (int type = 0; type < PENTO::kTypes; ++type) {
    PENTO piece = fresh(type);
    piece.SetPosition(3, -2);
    for (int step = 0; step < 60; ++step) {
      random() % 2 == 0 ? piece.Rotate() : piece.Flip();
      PENTO rebuilt = fresh(type);
      for (int i = 0; i < piece.RotationCount; ++i) rebuilt.Rotate();
      for (int i = 0; i < piece.FlipCount; ++i) rebuilt.Flip();
      EXPECT_EQ(cellsOf(piece), cellsOf(rebuilt));
      EXPECT_EQ(piece.X(), 3);
      EXPECT_EQ(piece.Y(), -2);
    }
  }
}

TEST(Pento, ATurnIsClockwiseAndAMirroredPieceCountsBackwards) {
  PENTO p = fresh(5);  // rows: 11. / 111; clockwise: 11 / 11 / 1. has its gap at the bottom right
  p.Rotate();
  EXPECT_EQ(p.Width(), 2);
  EXPECT_EQ(p.Height(), 3);
  EXPECT_EQ(p.GridX(4), 0);
  EXPECT_EQ(p.GridY(4), 2);
  p = fresh(7);
  p.Flip();
  p.Rotate();
  p.Flip();
  EXPECT_EQ(p.RotationCount, 3);
  EXPECT_EQ(p.FlipCount, 0);
}

TEST(Pento, ANumberThatIsNoTypeIsKeptAndHasNoCells) {
  EXPECT_EQ(PENTO().Width(), 1);
  PENTO piece = fresh(12);
  piece.Rotate();
  EXPECT_EQ(piece.PentoType(), 12);
  EXPECT_EQ(piece.RotationCount, 1);
  EXPECT_EQ(piece.Width(), 1);
  EXPECT_EQ(piece.GridX(0), 0);
  EXPECT_THROW(piece.GridX(6), std::out_of_range);
  EXPECT_THROW(piece.GridY(-1), std::out_of_range);
}

TEST(Pento, LettersAndTypesNameEachOther) {
  for (int type = 0; type < PENTO::kTypes; ++type)
    EXPECT_EQ(pentominoType(pentominoLetter(type)), type);
  EXPECT_EQ(pentominoType('x'), 8);
  EXPECT_EQ(pentominoType('A'), -1);
}

}  // namespace
