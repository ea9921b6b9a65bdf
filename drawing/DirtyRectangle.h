#pragma once

#include <algorithm>
#include <cstdint>

/// The area to be composed at the next flush: device pixels of the drawing surface, right and
/// bottom exclusive. It may reach beyond the surface.
struct DirtyRectangle {
  std::int32_t left = 0, top = 0, right = 0, bottom = 0;

  void include(const DirtyRectangle& other) {
    left = std::min(left, other.left);
    top = std::min(top, other.top);
    right = std::max(right, other.right);
    bottom = std::max(bottom, other.bottom);
  }
  /// The part of it that lies on a surface of that size.
  DirtyRectangle within(int width, int height) const {
    return {std::max(left, 0), std::max(top, 0), std::min(right, width), std::min(bottom, height)};
  }
  bool empty() const { return left >= right || top >= bottom; }
};
