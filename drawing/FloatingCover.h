#pragma once

#include "drawing/DirtyRectangle.h"
#include "model/PENTO.h"

/// What a floating piece hides: the cells beneath it need not be painted where its tiles lie.
///
/// Units:     device pixels of the buffer in which an area of the surface is composed.
/// Algorithm: the piece's tiles lie on a lattice of its own, of the same step as the cells. So a
///            cell is cut into at most four parts, each under one square of that lattice.
class FloatingCover {
 public:
  /// Null, or a piece of which nothing is drawn, hides nothing.
  FloatingCover(const PENTO* piece, int tile, const DirtyRectangle& area);

  /// Calls paint(x, y, width, height) for the parts of the cell at (x, y) that are not hidden.
  template <class Paint>
  void aroundCell(int x, int y, Paint paint) const {
    if (!meets(x, y)) {
      paint(x, y, tile_, tile_);
      return;
    }
    const int column = squareAt(x - left_), row = squareAt(y - top_);
    const int cutX = left_ + (column + 1) * tile_ - x, cutY = top_ + (row + 1) * tile_ - y;
    for (int half = 0; half < 2; ++half) {
      const int from = hides(column, row + half) ? cutX : 0;
      const int to = hides(column + 1, row + half) ? cutX : tile_;
      const int upper = half == 0 ? 0 : cutY, lower = half == 0 ? cutY : tile_;
      if (from < to && upper < lower) paint(x + from, y + upper, to - from, lower - upper);
    }
  }

 private:
  static constexpr int kSide = 5;  // squares; no pentomino is longer

  bool meets(int x, int y) const {
    return squares_ != 0 && x > left_ - tile_ && x < left_ + kSide * tile_ && y > top_ - tile_ &&
           y < top_ + kSide * tile_;
  }
  /// The square of the lattice at a distance of more than one tile left of its corner.
  int squareAt(int distance) const { return (distance + tile_) / tile_ - 1; }
  bool hides(int column, int row) const {
    return column >= 0 && column < kSide && row >= 0 && row < kSide &&
           (squares_ >> (row * kSide + column) & 1U) != 0;
  }

  int tile_;
  int left_ = 0;
  int top_ = 0;
  std::uint32_t squares_ = 0;  // a bit for each tile of the piece, row by row
};
