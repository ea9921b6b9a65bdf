#pragma once

#include <QImage>
#include <cstdint>
#include <vector>

/// A drawing surface: a rectangle of 32-bit pixels (0xFFRRGGBB, device pixels) that keeps what was
/// drawn. Growing and shrinking reuses its memory, so a buffer that changes its size at every step
/// of the mouse costs no allocation.
///
/// Why not QImage and QPainter: a QImage allocates with each size, and a step of the mouse painted
/// by QPainter takes five times as long with the same result (docs/benchmarks.md, "drag step").
class Surface {
 public:
  using Pixel = std::uint32_t;

  static constexpr Pixel rgb(int red, int green, int blue) {
    return 0xFF000000U | static_cast<Pixel>(red) << 16 | static_cast<Pixel>(green) << 8 |
           static_cast<Pixel>(blue);
  }

  int width() const { return width_; }
  int height() const { return height_; }
  /// Gives the surface another size; afterwards its pixels are undefined. Negative counts as 0.
  void resize(int width, int height);
  void clear(Pixel colour);
  Pixel* row(int y) { return pixels_.data() + offset(y); }
  const Pixel* row(int y) const { return pixels_.data() + offset(y); }

  /// Takes over a picture, pixel by pixel, and its size.
  void load(const QImage& picture);
  /// The pixels as a picture. It shares them: the surface must outlive it and keep its size.
  QImage view() const;

 private:
  std::size_t offset(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<Pixel> pixels_;
};

/// Copies `width` x `height` pixels from (fromX, fromY) of one surface to (x, y) of another: a
/// block transfer. What lies outside either surface is left out.
void BitBlt(Surface& to, int x, int y, int width, int height, const Surface& from, int fromX,
            int fromY);

/// Lines one pixel wide from (x, y) to the right and downward, clipped to the surface.
void drawRow(Surface& on, int x, int y, int length, Surface::Pixel colour);
void drawColumn(Surface& on, int x, int y, int length, Surface::Pixel colour);

/// Scales a whole picture onto the whole surface, each pixel from its nearest neighbour.
void stretchOnto(Surface& to, const Surface& from);
