#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <memory>
#include <vector>

#include "solver/Placement.h"

namespace solver {

/// The rolling window: how the scanning search sees a shape.
///
/// A shape is scanned column by column, top to bottom. Cell (x, y) has the position
/// x * kStride + y; at least one position behind each column is no cell, so that no piece can lie
/// across the end of a column. Everything before the first free cell is covered, so the state of a
/// search is that cell's position and a window of bits: bit i tells whether position + i is taken
/// (bit 0 is 0). A piece reaches 4 columns far, so a window of 32 bits serves columns of up to 6
/// cells, one of 64 bits up to 14, one of 128 bits up to 30. The stride is the widest that the
/// window allows, whatever the height of the columns: a constant stride makes constant shifts.
template <class Bits>
inline constexpr int kWindowBits = static_cast<int>(8 * sizeof(Bits));
template <class Bits>
inline constexpr int kStride = kWindowBits<Bits> / 4 - 1;
template <class Bits>
inline constexpr int kTallestColumn = kStride<Bits> - 1;

__extension__ using Bits32 = std::uint32_t;
__extension__ using Bits64 = std::uint64_t;
__extension__ using Bits128 = unsigned __int128;

/// Number of zero bits below the lowest one; `bits` is not 0.
inline int lowestBit(Bits32 bits) {
  return std::countr_zero(bits);
}
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

/// Which orientations fit onto the first free cell, by table.
///
/// The cells that a piece can reach from its first cell are gathered into two numbers: near ones (4
/// below it, 7 of the next column) and far ones (5, 3 and 1 of the columns behind). A table each
/// holds the orientations that need none of the taken cells and leave no free cell between
/// themselves and taken ones, as far as the table's cells can tell.
struct FitTables {
  std::array<OrientationSet, 1 << 11> near;
  std::array<OrientationSet, 1 << 9> far;

  /// `order` lists all orientations; their places in it are their indices.
  explicit FitTables(const std::array<const Orientation*, kOrientations>& order);
};

/// What a search over windows of one width looks up. Orientations are numbered so that those of the
/// first type of an order have the highest numbers.
template <class Bits>
class WindowTables {
 public:
  explicit WindowTables(const TypeOrder& order) : WindowTables(inOrder(order)) {}
  /// Those of kAwkwardFirst are made once.
  static std::shared_ptr<const WindowTables> of(const TypeOrder& order);

  /// The orientations whose first cell may lie on the window's first free cell.
  OrientationSet fitting(Bits window) const {
    return fits_.near[nearOf(window)] & fits_.far[farOf(window)];
  }

  /// True when a free cell of the window has four taken neighbours. Cells of the last columns,
  /// whose neighbours are out of sight, do not count.
  static bool hasIsolatedCell(Bits window) {
    constexpr int column = kStride<Bits>;
    const Bits free = ~window;
    const Bits neighbours = free << 1 | free >> 1 | free << column | free >> column;
    return (free & ~neighbours & ~Bits{0} >> column) != 0;
  }

  Bits mask(int orientation) const { return masks_[static_cast<std::size_t>(orientation)]; }
  int type(int orientation) const { return models_[static_cast<std::size_t>(orientation)]->type; }
  OrientationSet ofType(int type) const { return ofType_[static_cast<std::size_t>(type)]; }
  /// All orientations of the type that this one has.
  OrientationSet kin(int orientation) const { return kin_[static_cast<std::size_t>(orientation)]; }
  /// The orientation in the model's terms, and how far below its own top its first cell lies.
  const Orientation& model(int orientation) const {
    return *models_[static_cast<std::size_t>(orientation)];
  }

 private:
  using Models = std::array<const Orientation*, kOrientations>;

  explicit WindowTables(const Models& models);
  static Models inOrder(const TypeOrder& order);
  void arrange();  ///< the tables by nearOf and farOf
  template <int from, int count>
  static std::size_t bits(Bits window) {
    return static_cast<std::size_t>(window >> from) & ((std::size_t{1} << count) - 1);
  }
  static std::size_t nearOf(Bits window) {
    constexpr int column = kStride<Bits>;
    if constexpr (column == 7) return bits<1, 10>(window);  // the two columns share a bit
    return bits<1, 4>(window) | bits<column - 3, 7>(window) << 4;
  }
  static std::size_t farOf(Bits window) {
    constexpr int column = kStride<Bits>;
    // One product gathers the three columns, the last one in the lowest place.
    if constexpr (column == 7) return (bits<12, 17>(window) & 0x1071F) * 0x100201 >> 16 & 0x1FF;
    return bits<2 * column - 2, 5>(window) | bits<3 * column - 1, 3>(window) << 5 |
           bits<4 * column, 1>(window) << 8;
  }

  Models models_;
  FitTables fits_;
  std::array<Bits, kOrientations> masks_{};
  std::array<OrientationSet, PENTO::kTypes> ofType_{};
  std::array<OrientationSet, kOrientations> kin_{};
};

/// What a search looks at in a ScanShape: small enough to be copied into registers.
template <class Bits>
class Layout {
 public:
  explicit Layout(const Bits* taken) : taken_(taken) {}

  /// The window at `position` without any piece.
  Bits empty(int position) const { return taken_[position]; }

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
  const Bits* taken_;
};

/// A shape laid out for scanning. Behind the last column stand two free positions that nothing fits
/// on; the search is done when it reaches them.
template <class Bits>
class ScanShape {
 public:
  /// `shape` has columns of at most kTallestColumn cells.
  explicit ScanShape(const Shape& shape);

  int end() const { return end_; }
  /// Valid as long as this is.
  Layout<Bits> layout() const { return Layout<Bits>(taken_.data()); }
  Bits empty(int position) const { return layout().empty(position); }
  void advance(Bits& window, int& position) const { layout().advance(window, position); }

 private:
  int end_;
  std::vector<Bits> taken_;
};

}  // namespace solver
