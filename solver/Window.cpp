#include "solver/Window.h"

#include <algorithm>
#include <optional>

namespace solver {

namespace {

/// How the reach of a piece is gathered into table indices: the bits of one column each.
struct Reach {
  int column, firstRow, rows, shift;
};
constexpr std::array<Reach, 2> kNear{{{0, 1, 4, 0}, {1, -3, 7, 4}}};
constexpr std::array<Reach, 3> kFar{{{2, -2, 5, 0}, {3, -1, 3, 5}, {4, 0, 1, 8}}};

/// A cell, seen from the first one of a piece.
Cell relative(const Orientation& orientation, Cell cell) {
  return {cell.x, cell.y - orientation.cells[0].y};
}

bool covers(const Orientation& orientation, Cell cell) {
  return std::ranges::any_of(orientation.cells,
                             [&](Cell own) { return relative(orientation, own) == cell; });
}

/// One of the two tables in the making.
template <std::size_t size, std::size_t columns>
class Maker {
 public:
  Maker(std::array<OrientationSet, size>& table, const std::array<Reach, columns>& reach)
      : table_(table), reach_(reach) {
    table_.fill(~OrientationSet{0} >> (64 - kOrientations));
  }

  void add(const Orientation& orientation, OrientationSet self) {
    for (const Reach& reach : reach_)
      for (int i = 0; i < reach.rows; ++i) {
        const Cell cell{reach.column, reach.firstRow + i};
        if (covers(orientation, cell))
          forbid(self, *bitOf(cell), 0);
        else
          forbidIsolating(orientation, self, cell);
      }
  }

 private:
  std::optional<std::size_t> bitOf(Cell cell) const {
    for (const Reach& reach : reach_) {
      const int row = cell.y - reach.firstRow;
      if (reach.column == cell.x && row >= 0 && row < reach.rows)
        return std::size_t{1} << (reach.shift + row);
    }
    return std::nullopt;
  }

  /// Takes an orientation out of all sets for which `taken` are taken and `free` are free.
  void forbid(OrientationSet self, std::size_t taken, std::size_t free) {
    const std::size_t others = (size - 1) & ~(taken | free);
    for (std::size_t some = others;; some = (some - 1) & others) {
      table_[taken | some] &= ~self;
      if (some == 0) return;
    }
  }

  /// Forbids to leave `cell` free when the piece and taken cells would enclose it.
  void forbidIsolating(const Orientation& orientation, OrientationSet self, Cell cell) {
    std::size_t taken = 0;
    bool touches = false;
    for (const Cell near : {Cell{cell.x - 1, cell.y}, Cell{cell.x, cell.y - 1},
                            Cell{cell.x, cell.y + 1}, Cell{cell.x + 1, cell.y}}) {
      const bool before = near < Cell{0, 0};  // everything there is taken
      const bool covered = covers(orientation, near);
      touches = touches || covered;
      if (before || covered) continue;
      const auto bit = bitOf(near);
      if (!bit) return;
      taken |= *bit;
    }
    if (touches) forbid(self, taken, *bitOf(cell));
  }

  std::array<OrientationSet, size>& table_;
  const std::array<Reach, columns>& reach_;
};

}  // namespace

FitTables::FitTables(const std::array<const Orientation*, kOrientations>& order) {
  Maker nearMaker(near, kNear);
  Maker farMaker(far, kFar);
  OrientationSet self = 1;
  for (const Orientation* orientation : order) {
    nearMaker.add(*orientation, self);
    farMaker.add(*orientation, self);
    self <<= 1;
  }
}

template <class Bits>
typename WindowTables<Bits>::Models WindowTables<Bits>::inOrder(const TypeOrder& order) {
  Models models{};
  auto next = models.end();
  for (const int type : order)
    for (const Orientation& orientation : orientations())
      if (orientation.type == type) *--next = &orientation;
  return models;
}

template <>
void WindowTables<Bits32>::arrange() {
  const FitTables made = fits_;
  for (std::size_t i = 0; i < std::size_t{1} << 10; ++i)
    fits_.near[i] = made.near[(i & 15) | (i >> 3) << 4];
  for (std::size_t i = 0; i < made.far.size(); ++i)
    fits_.far[i] = made.far[i >> 4 | (i >> 1 & 7) << 5 | (i & 1) << 8];
}

template <class Bits>
void WindowTables<Bits>::arrange() {}

template <class Bits>
WindowTables<Bits>::WindowTables(const Models& models) : models_(models), fits_(models) {
  arrange();
  for (int i = 0; i < kOrientations; ++i) {
    ofType_[static_cast<std::size_t>(type(i))] |= OrientationSet{1} << i;
    for (const Cell cell : model(i).cells) {
      const Cell at = relative(model(i), cell);
      masks_[static_cast<std::size_t>(i)] |= Bits{1} << (at.x * kStride<Bits> + at.y);
    }
  }
  for (int i = 0; i < kOrientations; ++i) kin_[static_cast<std::size_t>(i)] = ofType(type(i));
}

template <class Bits>
std::shared_ptr<const WindowTables<Bits>> WindowTables<Bits>::of(const TypeOrder& order) {
  if (order != kAwkwardFirst) return std::make_shared<WindowTables>(order);
  static const auto usual = std::make_shared<const WindowTables>(kAwkwardFirst);
  return usual;
}

template <class Bits>
ScanShape<Bits>::ScanShape(const Shape& shape) : end_((shape.width() + 1) * kStride<Bits>) {
  std::vector<bool> free(static_cast<std::size_t>(end_ + 2 * kWindowBits<Bits>));
  for (const Cell cell : shape.cells())
    free[static_cast<std::size_t>(cell.x * kStride<Bits> + cell.y)] = true;
  free[static_cast<std::size_t>(end_)] = free[static_cast<std::size_t>(end_ + 1)] = true;

  taken_.resize(static_cast<std::size_t>(end_ + kWindowBits<Bits>));
  Bits window = ~Bits{0};
  for (std::size_t position = free.size(); position-- > 0;) {
    window = window << 1 | static_cast<Bits>(free[position] ? 0 : 1);
    if (position < taken_.size()) taken_[position] = window;
  }
}

template class WindowTables<Bits32>;
template class WindowTables<Bits64>;
template class WindowTables<Bits128>;
template class ScanShape<Bits32>;
template class ScanShape<Bits64>;
template class ScanShape<Bits128>;

}  // namespace solver
