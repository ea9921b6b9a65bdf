#include "drawing/Surface.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int kWide = 24;  // pixels from which the library's copy beats a loop of our own

/// Copies a short row in blocks of fixed size, which need no call. The last block may copy again
/// what the one before it has copied.
void copyRow(Surface::Pixel* to, const Surface::Pixel* from, int count) {
  constexpr int block = 8;
  if (count < block) {
    for (int i = 0; i < count; ++i) to[i] = from[i];
    return;
  }
  const int last = count - block;
  for (int i = 0; i < last; i += block)
    std::memcpy(to + i, from + i, block * sizeof(Surface::Pixel));
  std::memcpy(to + last, from + last, block * sizeof(Surface::Pixel));
}

/// Narrows a span on both surfaces to what lies inside both.
void clip(int& at, int& fromAt, int& length, int size, int fromSize) {
  const int skip = std::max({0, -at, -fromAt});
  at += skip;
  fromAt += skip;
  length = std::min({length - skip, size - at, fromSize - fromAt});
}

}  // namespace

void Surface::resize(int width, int height) {
  width_ = std::max(width, 0);
  height_ = std::max(height, 0);
  const std::size_t needed = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
  if (pixels_.size() < needed) pixels_.resize(needed);
}

void Surface::clear(Pixel colour) {
  std::fill_n(pixels_.begin(), offset(height_), colour);
}

void Surface::load(const QImage& picture) {
  const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
  resize(rgb.width(), rgb.height());
  for (int y = 0; y < height_; ++y)
    std::memcpy(row(y), rgb.constScanLine(y), static_cast<std::size_t>(width_) * sizeof(Pixel));
}

QImage Surface::view() const {
  return {reinterpret_cast<const uchar*>(pixels_.data()), width_, height_,
          width_ * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32};
}

void BitBlt(Surface& to, int x, int y, int width, int height, const Surface& from, int fromX,
            int fromY) {
  clip(x, fromX, width, to.width(), from.width());
  clip(y, fromY, height, to.height(), from.height());
  if (width <= 0 || height <= 0) return;
  Surface::Pixel* target = to.row(y) + x;
  const Surface::Pixel* source = from.row(fromY) + fromX;
  const std::size_t bytes = static_cast<std::size_t>(width) * sizeof(Surface::Pixel);
  for (int line = 0; line < height; ++line, target += to.width(), source += from.width()) {
    if (width < kWide)
      copyRow(target, source, width);
    else
      std::memcpy(target, source, bytes);
  }
}

void drawRow(Surface& on, int x, int y, int length, Surface::Pixel colour) {
  const int first = std::max(x, 0), end = std::min(x + length, on.width());
  if (y < 0 || y >= on.height() || first >= end) return;
  std::fill_n(on.row(y) + first, end - first, colour);
}

void drawColumn(Surface& on, int x, int y, int length, Surface::Pixel colour) {
  const int first = std::max(y, 0), end = std::min(y + length, on.height());
  if (x < 0 || x >= on.width() || first >= end) return;
  Surface::Pixel* target = on.row(first) + x;
  for (int line = first; line < end; ++line, target += on.width()) *target = colour;
}

void stretchOnto(Surface& to, const Surface& from) {
  if (from.width() == 0 || from.height() == 0) return;
  std::vector<int> column(static_cast<std::size_t>(to.width()));
  for (int x = 0; x < to.width(); ++x)
    column[static_cast<std::size_t>(x)] = x * from.width() / to.width();
  for (int y = 0; y < to.height(); ++y) {
    const Surface::Pixel* source = from.row(y * from.height() / to.height());
    Surface::Pixel* target = to.row(y);
    for (int x = 0; x < to.width(); ++x) target[x] = source[column[static_cast<std::size_t>(x)]];
  }
}
