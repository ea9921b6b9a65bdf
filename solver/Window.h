#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

#include "solver/Placement.h"

/// The rolling window: how the scanning search sees a shape.
///
/// A shape is scanned column by column, top to bottom. Cell (x, y) has the position
/// x * stride + y; at least one position behind each column is no cell, so that no piece can lie
/// across the end of a column. Everything before the first free cell is covered, so the state of a
/// search is that cell's position and a window of bits: bit i tells whether position + i is taken
/// (bit 0 is 0). A piece reaches 4 columns far, so a window of 64 bits serves columns of up to 14
/// cells, one of 128 bits up to 30.
template <class Bits>
inline constexpr int kWindowBits = static_cast<int>(8 * sizeof(Bits));
template <class Bits>
inline constexpr int kTallestColumn = (kWindowBits<Bits> - 4) / 4 - 1;

__extension__ using Bits64 = std::uint64_t;
__extension__ using Bits128 = unsigned __int128;

/// Number of zero bits below the lowest one; `bits` is not 0.
inline int lowestBit(Bits64 bits) {
  return std::countr_zero(bits);
}
inline int lowestBit(Bits128 bits) {
  const auto low = static_cast<Bits64>(bits);
  return low != 0 ? lowestBit(low) : 64 + lowestBit(static_cast<Bits64>(bits >> 64));
}

/// A set of orientations, by their index in orientations(), or in another order where one is given.
using OrientationSet = std::uint64_t;

/// The order in which a search tries the twelve types.
using TypeOrder = std::array<int, PENTO::kTypes>;
/// Awkward pieces first: what is hard to lay is laid while there is room.
inline constexpr TypeOrder kAwkwardFirst{8, 3, 4, 7, 11, 10, 1, 6, 9, 0, 2, 5};

/// Which orientations fit onto the first free cell of a window, by table.
///
/// The cells that a piece can reach from its first cell (4 below it, 7 of the next column, then 5,
/// 3 and 1) are gathered into two numbers of 11 and 9 bits; one table each holds the orientations
/// that need none of the taken cells.
template <class Bits>
class WindowTables {
 public:
  WindowTables(int stride, const TypeOrder& order);

  int stride() const { return stride_; }

  /// The orientations whose first cell may lie on the window's first free cell.
  OrientationSet fitting(Bits window) const {
    const auto near = bits(window, 1, 4) | bits(window, stride_ - 3, 7) << 4;
    const auto far = bits(window, 2 * stride_ - 2, 5) | bits(window, 3 * stride_ - 1, 3) << 5 |
                     bits(window, 4 * stride_, 1) << 8;
    return near_[near] & far_[far];
  }

  /// True when a free cell of the window has four taken neighbours. Cells of the last columns,
  /// whose neighbours are out of sight, do not count.
  bool hasIsolatedCell(Bits window) const {
    const Bits free = ~window;
    const Bits neighbours = free << 1 | free >> 1 | free << stride_ | free >> stride_;
    return (free & ~neighbours & inSight_) != 0;
  }

  Bits mask(int orientation) const { return masks_[static_cast<std::size_t>(orientation)]; }
  int type(int orientation) const { return types_[static_cast<std::size_t>(orientation)]; }
  OrientationSet ofType(int type) const { return ofType_[static_cast<std::size_t>(type)]; }
  /// The orientation in the model's terms, and how far below its own top its first cell lies.
  const Orientation& model(int orientation) const {
    return *models_[static_cast<std::size_t>(orientation)];
  }

 private:
  static std::size_t bits(Bits window, int from, int count) {
    return static_cast<std::size_t>(window >> from) & ((std::size_t{1} << count) - 1);
  }
  void add(const Orientation& orientation, int index);

  int stride_;
  Bits inSight_;
  std::array<OrientationSet, 1 << 11> near_{};
  std::array<OrientationSet, 1 << 9> far_{};
  std::array<Bits, kOrientations> masks_{};
  std::array<int, kOrientations> types_{};
  std::array<OrientationSet, PENTO::kTypes> ofType_{};
  std::array<const Orientation*, kOrientations> models_{};
};

/// A shape laid out for scanning. Behind the last column stand two free positions that nothing fits
/// on; the search is done when it reaches them.
template <class Bits>
class ScanShape {
 public:
  /// `shape` has columns of at most kTallestColumn cells.
  ScanShape(const Shape& shape, int stride);

  int end() const { return end_; }

  /// The window at `position` without any piece.
  Bits empty(int position) const { return taken_[static_cast<std::size_t>(position)]; }

  /// Moves a window to its first free cell.
  void advance(Bits& window, int& position) const {
    while (window == ~Bits{0}) {
      position += kWindowBits<Bits>;
      window = empty(position);
    }
    const int step = lowestBit(static_cast<Bits>(~window));
    position += step;
    window = window >> step | empty(position);
  }

 private:
  int end_;
  std::vector<Bits> taken_;
};

/// The stride for columns of `height` cells.
inline int strideFor(int height) {
  return height < 3 ? 4 : height + 1;
}
