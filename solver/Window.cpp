#include "solver/Window.h"

namespace {

/// How the reach of a piece is gathered into table indices: the bits of one column each.
struct Reach {
  int column, firstRow, rows, shift;
  bool far;
};
constexpr std::array<Reach, 5> kReach{{{0, 1, 4, 0, false},
                                       {1, -3, 7, 4, false},
                                       {2, -2, 5, 0, true},
                                       {3, -1, 3, 5, true},
                                       {4, 0, 1, 8, true}}};

/// From "this cell is taken" for single cells to "these cells are taken" for all sets of them.
template <std::size_t size>
void completeTable(std::array<OrientationSet, size>& table) {
  table[0] = ~OrientationSet{0} >> (64 - kOrientations);
  for (std::size_t taken = 1; taken < size; ++taken) {
    const std::size_t lowest = taken & (~taken + 1);
    if (taken != lowest) table[taken] = table[taken - lowest] & table[lowest];
  }
}

}  // namespace

template <class Bits>
WindowTables<Bits>::WindowTables(int stride, const TypeOrder& order)
    : stride_(stride), inSight_(~Bits{0} >> stride) {
  for (std::size_t bit = 1; bit < near_.size(); bit <<= 1) near_[bit] = ~OrientationSet{0};
  for (std::size_t bit = 1; bit < far_.size(); bit <<= 1) far_[bit] = ~OrientationSet{0};
  int index = 0;
  for (const int type : order)
    for (const Orientation& orientation : orientations())
      if (orientation.type == type) add(orientation, index++);
  completeTable(near_);
  completeTable(far_);
}

template <class Bits>
void WindowTables<Bits>::add(const Orientation& orientation, int index) {
  const auto at = static_cast<std::size_t>(index);
  const OrientationSet self = OrientationSet{1} << index;
  for (std::size_t i = 0; i < orientation.cells.size(); ++i) {
    const Cell cell = orientation.cells[i];
    const int row = cell.y - orientation.cells[0].y;
    masks_[at] |= Bits{1} << (cell.x * stride_ + row);
    if (i == 0) continue;
    const Reach& reach = kReach[static_cast<std::size_t>(cell.x)];
    const std::size_t bit = std::size_t{1} << (reach.shift + row - reach.firstRow);
    (reach.far ? far_[bit] : near_[bit]) &= ~self;
  }
  types_[at] = orientation.type;
  ofType_[static_cast<std::size_t>(orientation.type)] |= self;
  models_[at] = &orientation;
}

template <class Bits>
ScanShape<Bits>::ScanShape(const Shape& shape, int stride) : end_((shape.width() + 1) * stride) {
  std::vector<bool> free(static_cast<std::size_t>(end_ + 2 * kWindowBits<Bits>));
  for (const Cell cell : shape.cells())
    free[static_cast<std::size_t>(cell.x * stride + cell.y)] = true;
  free[static_cast<std::size_t>(end_)] = free[static_cast<std::size_t>(end_ + 1)] = true;

  taken_.resize(static_cast<std::size_t>(end_ + kWindowBits<Bits>));
  Bits window = ~Bits{0};
  for (std::size_t position = free.size(); position-- > 0;) {
    window = window << 1 | static_cast<Bits>(free[position] ? 0 : 1);
    if (position < taken_.size()) taken_[position] = window;
  }
}

template class WindowTables<Bits64>;
template class WindowTables<Bits128>;
template class ScanShape<Bits64>;
template class ScanShape<Bits128>;
