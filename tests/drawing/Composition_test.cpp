// The picture of a board against a slow and obvious way to the same pixels.
#include "drawing/Composition.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/drawing/TestAtlas.h"
#include "tests/model/Pieces.h"

namespace {

constexpr QRgb kUntouched = qRgb(1, 2, 3);
constexpr QRgb kWhite = qRgb(255, 255, 255);

QImage makeBackground(int width, int height) {
  QImage picture(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) picture.setPixel(x, y, qRgb(200, x * 3 % 256, y * 5 % 256));
  return picture;
}

/// Each pixel of the surface by itself, from the rules of the game's picture.
class SlowPainter {
 public:
  SlowPainter(const TestAtlas& atlas, const QImage& back, const PENTOGRID& grid,
              const PENTO* floating, int tile)
      : atlas_(atlas), back_(back), grid_(grid), floating_(floating), s_(tile) {}

  QRgb pixel(int x, int y) const {
    QRgb colour = back_.pixel(x % back_.width(), y % back_.height());
    const int c = x / s_, r = y / s_;
    if (c < grid_.Width() && r < grid_.Height() && !grid_.IsBackground(c, r))
      colour = cellPixel(c, r, x - c * s_, y - r * s_, colour);
    return floatingPixel(x, y, colour);
  }

 private:
  QRgb cellPixel(int c, int r, int x, int y, QRgb behind) const {
    const bool outline = (y == 0 && other(c, r, c, r - 1)) || (x == 0 && other(c, r, c - 1, r)) ||
                         (y == s_ - 1 && other(c, r, c, r + 1)) ||
                         (x == s_ - 1 && other(c, r, c + 1, r));
    if (outline) return kWhite;
    const int t = grid_.IsEmpty(c, r) ? 12 : grid_.PentoAt(c, r)->PentoType();
    return t <= 15 && t >= 0 ? atlas_.texel(t, x, y, s_) : behind;
  }

  bool other(int c, int r, int nc, int nr) const {
    if (nc < 0 || nr < 0 || nc >= grid_.Width() || nr >= grid_.Height()) return false;
    return grid_.PentoID(c, r) != grid_.PentoID(nc, nr);
  }

  QRgb floatingPixel(int x, int y, QRgb behind) const {
    if (!floating_) return behind;
    for (int i = 0; i < PENTO::kCells; ++i) {
      const int left = floating_->X() + s_ * floating_->GridX(i);
      const int top = floating_->Y() + s_ * floating_->GridY(i);
      if (x >= left && x < left + s_ && y >= top && y < top + s_)
        return atlas_.texel(floating_->PentoType(), x - left, y - top, s_);
    }
    return behind;
  }

  const TestAtlas& atlas_;
  const QImage& back_;
  const PENTOGRID& grid_;
  const PENTO* floating_;
  int s_;
};

class CompositionTest : public ::testing::Test {
 protected:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  PENTOGRID randomGrid() {
    PENTOGRID grid;
    grid.SetGridSize(static_cast<std::int16_t>(3 + below(12)),
                     static_cast<std::int16_t>(3 + below(12)));
    for (int i = 0; i < 25; ++i) grid.SetGridBackground(below(grid.Width()), below(grid.Height()));
    for (int i = 0; i < 12; ++i) {
      const PentoRef piece = makePiece(below(18), below(4));  // some are no pieces at all
      grid.AddPento(piece, below(grid.Width()), below(grid.Height()));
    }
    return grid;
  }

  std::mt19937 random_{20};
};

TEST_F(CompositionTest, EveryRectangleShowsWhatAPixelByPixelPaintingShows) {
  TestAtlas pictures;
  for (int round = 0; round < 150; ++round) {
    const PENTOGRID grid = randomGrid();
    const int s = 1 + below(33);
    const QImage back = makeBackground(1 + below(40), 1 + below(40));
    TextureAtlas atlas(101, 85);
    atlas.load(pictures.file(), s);
    Composition composition;
    composition.background(back);

    PENTO piece = *makePiece(below(12));
    const int width = s * grid.Width() + below(5), height = s * grid.Height() + below(5);
    piece.SetPosition(static_cast<std::int16_t>(below(width + 6 * s) - 3 * s),
                      static_cast<std::int16_t>(below(height + 6 * s) - 3 * s));
    const PENTO* floating = below(3) == 0 ? nullptr : &piece;

    Surface surface;
    surface.resize(width, height);
    surface.clear(kUntouched);
    DirtyRectangle area{below(width) - 20, below(height) - 20, 0, 0};
    area.right = area.left + below(width + 30);
    area.bottom = area.top + below(height + 30);
    if (round % 5 == 0) area = {0, 0, width + 4, height + 4};
    composition.draw({&grid, &atlas, floating}, area, surface);

    const SlowPainter slow(pictures, back, grid, floating, s);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const bool inside = x >= area.left && x < area.right && y >= area.top && y < area.bottom;
        ASSERT_EQ(surface.row(y)[x], inside ? slow.pixel(x, y) : kUntouched)
            << "round " << round << ", pixel " << x << ", " << y << ", tile " << s;
      }
    }
  }
}

TEST_F(CompositionTest, WithoutAGridOnlyThePlainBackgroundShows) {
  TextureAtlas atlas(101, 85);
  EXPECT_EQ(atlas.tileWidth(), 25);
  Composition composition;
  Surface surface;
  surface.resize(300, 200);
  composition.draw({nullptr, &atlas, nullptr}, {0, 0, 300, 200}, surface);
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 300; ++x) ASSERT_EQ(surface.row(y)[x], surface.row(0)[0]);
}

/// Seen: below the ten rows of it that such an atlas holds, the empty cell showed what was composed
/// before.
TEST_F(CompositionTest, WhereTheAtlasEndsTheBackgroundShows) {
  TextureAtlas atlas(101, 85);
  PENTOGRID grid;
  grid.SetGridSize(4, 4);
  Composition composition;
  Surface surface;
  surface.resize(100, 100);
  QImage loud(10, 10, QImage::Format_RGB32);
  loud.fill(kUntouched);
  composition.background(loud);
  composition.draw({nullptr, &atlas, nullptr}, {0, 0, 100, 100}, surface);
  composition.background(makeBackground(7, 9));
  composition.draw({&grid, &atlas, nullptr}, {0, 0, 100, 100}, surface);
  for (int y = 0; y < 100; ++y)
    ASSERT_EQ(surface.row(y)[60], y % 25 < 10 ? kWhite : makeBackground(7, 9).pixel(60 % 7, y % 9));
}

}  // namespace
