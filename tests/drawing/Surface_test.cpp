// Block transfers and scaling against loops over single pixels. (Lines are clipped in the pictures
// of the board, whose test looks at every pixel.)
#include "drawing/Surface.h"

#include <gtest/gtest.h>

#include <random>

#include "drawing/Rounding.h"

namespace {

class SurfaceTest : public ::testing::Test {
 protected:
  int between(int low, int high) {
    return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
  }

  Surface noise(int width, int height) {
    Surface surface;
    surface.resize(width, height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) surface.row(y)[x] = static_cast<Surface::Pixel>(random_());
    return surface;
  }

  static bool inside(const Surface& surface, int x, int y) {
    return x >= 0 && y >= 0 && x < surface.width() && y < surface.height();
  }

  static void expectSame(const Surface& left, const Surface& right, int round) {
    ASSERT_EQ(left.view(), right.view()) << "round " << round;
  }

  std::mt19937 random_{7};
};

TEST_F(SurfaceTest, ABlockTransferCopiesWhatLiesInsideBothSurfaces) {
  for (int round = 0; round < 500; ++round) {
    const Surface from = noise(between(1, 60), between(1, 20));
    Surface to = noise(between(1, 60), between(1, 20));
    Surface slow = to;
    const int x = between(-70, 70), y = between(-25, 25);
    const int fromX = between(-70, 70), fromY = between(-25, 25);
    const int width = between(-3, 90), height = between(-3, 30);
    for (int j = 0; j < height; ++j)
      for (int i = 0; i < width; ++i)
        if (inside(to, x + i, y + j) && inside(from, fromX + i, fromY + j))
          slow.row(y + j)[x + i] = from.row(fromY + j)[fromX + i];
    BitBlt(to, x, y, width, height, from, fromX, fromY);
    expectSame(to, slow, round);
  }
}

TEST_F(SurfaceTest, AStretchedPictureTakesEachPixelFromItsNearestNeighbour) {
  const Surface from = noise(16, 8);
  Surface doubled;
  doubled.resize(32, 16);
  stretchOnto(doubled, from);
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 32; ++x) ASSERT_EQ(doubled.row(y)[x], from.row(y / 2)[x / 2]);
  Surface smaller;
  smaller.resize(5, 3);
  stretchOnto(smaller, from);
  EXPECT_EQ(smaller.row(0)[0], from.row(0)[0]);
  EXPECT_EQ(smaller.row(2)[4], from.row(5)[12]);
}

TEST(TwipsTest, HalvesAreRoundedToTheEvenNeighbour) {
  for (const auto& [value, rounded] :
       {std::pair{0.5, 0}, std::pair{1.5, 2}, std::pair{2.5, 2}, std::pair{-0.5, 0},
        std::pair{-1.5, -2}, std::pair{25.25, 25}, std::pair{29.75, 30}})
    EXPECT_EQ(nearest(value), rounded) << value;
}

}  // namespace
