#include <gtest/gtest.h>

#include <set>

#include "solver/Placement.h"

namespace solver {

TEST(Shape, EverySymmetryIsUndoneByItsInverse) {
  Shape shape(4, 3);
  for (const Cell cell : {Cell{0, 0}, Cell{1, 0}, Cell{3, 0}, Cell{1, 2}}) shape.set(cell);
  std::set<std::vector<Cell>> images;
  for (const Symmetry symmetry : kSymmetries) {
    const Shape image = shape.transformed(symmetry);
    EXPECT_EQ(image.transformed(symmetry.inverse()), shape);
    images.insert(image.cells());
  }
  EXPECT_EQ(images.size(), 8u);
}

TEST(Shape, KnowsItsSymmetries) {
  EXPECT_EQ(symmetriesOf(Shape::rectangle(3, 3)).size(), 8u);
  EXPECT_EQ(symmetriesOf(Shape::rectangle(6, 10)).size(), 4u);
  Shape corner = Shape::rectangle(3, 3);
  corner.set({0, 0}, false);
  EXPECT_EQ(symmetriesOf(corner).size(), 2u);
  corner.set({2, 1}, false);
  EXPECT_EQ(symmetriesOf(corner), std::vector{Symmetry{}});
}

TEST(Shape, RefusesCellsOutsideItsBox) {
  Shape shape(2, 2);
  EXPECT_THROW(shape.set({2, 0}), std::out_of_range);
  EXPECT_FALSE(shape.contains({-1, 0}));
}

TEST(Placement, TheTwelvePiecesHaveSixtyThreeOrientations) {
  std::array<int, PENTO::kTypes> ofType{};
  std::set<std::array<Cell, PENTO::kCells>> distinct;
  for (const Orientation& orientation : orientations()) {
    ++ofType[static_cast<std::size_t>(orientation.type)];
    distinct.insert(orientation.cells);
  }
  EXPECT_EQ(distinct.size(), 63u);
  const std::array<int, PENTO::kTypes> known{8, 2, 8, 4, 4, 8, 4, 8, 1, 8, 4, 4};  // YILWZPVFXNUT
  EXPECT_EQ(ofType, known);
}

TEST(Placement, IsFoundBackFromItsCellsAndTurnsAsItsCellsDo) {
  for (const Orientation& orientation : orientations()) {
    const Placement placement = placementOf(orientation, 3, 5);
    EXPECT_EQ(placementCovering(cellsOf(placement)), placement);
    for (const Symmetry symmetry : kSymmetries) {
      std::set<Cell> expected;
      for (const Cell cell : cellsOf(placement)) expected.insert(symmetry.apply(cell, 9, 11));
      const auto cells = cellsOf(transformed(placement, symmetry, 9, 11));
      EXPECT_EQ(std::set<Cell>(cells.begin(), cells.end()), expected);
    }
  }
  EXPECT_THROW(placementCovering({{{0, 0}, {0, 1}, {0, 2}, {0, 3}, {1, 4}}}),
               std::invalid_argument);
}

}  // namespace solver
