#include "platform/Surface.h"

#include <algorithm>
#include <cstring>

namespace {

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
  if (width <= 0) return;
  const std::size_t bytes = static_cast<std::size_t>(width) * sizeof(Surface::Pixel);
  for (int line = 0; line < height; ++line)
    std::memcpy(to.row(y + line) + x, from.row(fromY + line) + fromX, bytes);
}

void fillRect(Surface& on, int x, int y, int width, int height, Surface::Pixel colour) {
  const int left = std::max(x, 0), right = std::min(x + width, on.width());
  const int top = std::max(y, 0), bottom = std::min(y + height, on.height());
  if (left >= right) return;
  for (int line = top; line < bottom; ++line)
    std::fill(on.row(line) + left, on.row(line) + right, colour);
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
