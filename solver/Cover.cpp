#include "solver/Cover.h"

#include <algorithm>

namespace solver {

namespace {

using Piece = std::array<Cell, PENTO::kCells>;

/// What g makes of a piece, its cells in the order of columns.
Piece imageOf(Piece cells, const Shape& shape, Symmetry g) {
  for (Cell& cell : cells) cell = g.apply(cell, shape.width(), shape.height());
  std::ranges::sort(cells);
  return cells;
}

/// The first of the cells that g makes of this one.
Cell firstOfOrbit(Cell cell, const Shape& shape, Symmetry g) {
  Cell first = cell;
  for (Cell image = g.apply(cell, shape.width(), shape.height()); image != cell;
       image = g.apply(image, shape.width(), shape.height()))
    first = std::min(first, image);
  return first;
}

/// The first cell of each orbit of the cells, in order.
std::vector<Cell> firstsOf(std::vector<Cell> cells, const Shape& shape, Symmetry g) {
  for (Cell& cell : cells) cell = firstOfOrbit(cell, shape, g);
  std::ranges::sort(cells);
  cells.erase(std::unique(cells.begin(), cells.end()), cells.end());
  return cells;
}

/// All that g makes of a piece; empty when another of them comes first, or when they overlap.
std::vector<Cell> orbitOf(const Piece& piece, const Shape& shape, Symmetry g) {
  std::vector<Cell> all(piece.begin(), piece.end());
  for (Piece image = imageOf(piece, shape, g); image != piece; image = imageOf(image, shape, g)) {
    const bool overlaps =
        std::ranges::any_of(image, [&](Cell cell) { return std::ranges::count(all, cell) > 0; });
    if (overlaps || image < piece) return {};
    all.insert(all.end(), image.begin(), image.end());
  }
  return all;
}

}  // namespace

Cover::Cover(const Shape& shape, const PieceSet& supply, Symmetry g) : plain_(g == Symmetry{}) {
  const std::vector<Cell> cells = firstsOf(shape.cells(), shape, g);
  if (cells.empty()) return;
  const auto [top, bottom] = std::ranges::minmax(cells, {}, &Cell::y);
  top_ = top.y;
  stride_ = bottom.y - top.y + 2;
  free_.resize(static_cast<std::size_t>((cells.back().x + 1) * stride_));
  items_.resize(free_.size());
  for (const Cell cell : cells) free_[static_cast<std::size_t>(positionOf(cell))] = true;
  if (!plain_) {
    for (int type = 0; type < PENTO::kTypes; ++type) addOrbits(type, supply[type], shape, g);
    return;
  }
  for (const Orientation& orientation : orientations())
    if (supply[orientation.type] > 0) addPieces(orientation, shape, cells);
}

void Cover::addPieces(const Orientation& orientation, const Shape& shape,
                      const std::vector<Cell>& cells) {
  const Cell first = orientation.cells[0];
  CoverItem item{0, orientation.type, 1};
  for (const Cell cell : orientation.cells) {
    const int ahead = cell.x * stride_ + cell.y - first.y;
    if (ahead < kWindowBits<Bits128>) item.mask |= Bits128{1} << ahead;
  }
  const Cell last = orientation.cells.back();
  for (const Cell cell : cells) {
    const bool fits = std::ranges::all_of(orientation.cells, [&](Cell own) {
      return shape.contains({cell.x + own.x, cell.y + own.y - first.y});
    });
    if (!fits) continue;
    reach_ = std::max(reach_, last.x * stride_ + last.y - first.y + 1);
    items_[static_cast<std::size_t>(positionOf(cell))].push_back(item);
  }
}

void Cover::addOrbits(int type, int most, const Shape& shape, Symmetry g) {
  for (const Placement& placement : placesOf(type, shape)) {
    const std::vector<Cell> orbit = orbitOf(cellsOf(placement), shape, g);
    const int copies = static_cast<int>(orbit.size()) / PENTO::kCells;
    if (copies > 0 && copies <= most) add(firstsOf(orbit, shape, g), type, copies);
  }
}

void Cover::add(const std::vector<Cell>& cells, int type, int copies) {
  const int first = positionOf(cells.front());
  CoverItem item{0, type, copies};
  for (const Cell cell : cells) {
    const int ahead = positionOf(cell) - first;
    reach_ = std::max(reach_, ahead + 1);
    if (ahead < kWindowBits<Bits128>) item.mask |= Bits128{1} << ahead;
  }
  items_[static_cast<std::size_t>(first)].push_back(item);
}

}  // namespace solver
