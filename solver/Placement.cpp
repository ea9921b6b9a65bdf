#include "solver/Placement.h"

#include <algorithm>
#include <stdexcept>

namespace {

using Cells = std::array<Cell, PENTO::kCells>;

Orientation orientationOf(int type, int rotations, int flips) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(type));
  for (int i = 0; i < rotations; ++i) piece.Rotate();
  for (int i = 0; i < flips; ++i) piece.Flip();
  Orientation result{type, rotations, flips, {}};
  for (int i = 0; i < PENTO::kCells; ++i)
    result.cells[static_cast<std::size_t>(i)] = {piece.GridX(i), piece.GridY(i)};
  std::ranges::sort(result.cells);
  return result;
}

std::array<Orientation, kOrientations> makeOrientations() {
  std::array<Orientation, kOrientations> all{};
  std::size_t count = 0;
  for (int type = 0; type < PENTO::kTypes; ++type)
    for (int turn = 0; turn < 8; ++turn) {
      const Orientation candidate = orientationOf(type, turn % 4, turn / 4);
      const auto known = std::ranges::find(all.begin(), all.begin() + static_cast<long>(count),
                                           candidate.cells, &Orientation::cells);
      if (known == all.begin() + static_cast<long>(count)) all.at(count++) = candidate;
    }
  return all;
}

Cell topLeft(const Cells& cells) {
  return {std::ranges::min(cells, {}, &Cell::x).x, std::ranges::min(cells, {}, &Cell::y).y};
}

}  // namespace

const std::array<Orientation, kOrientations>& orientations() {
  static const std::array<Orientation, kOrientations> all = makeOrientations();
  return all;
}

Placement placementOf(const Orientation& orientation, int x, int y) {
  return {orientation.type, x, y, orientation.rotations, orientation.flips};
}

Cells cellsOf(const Placement& placement) {
  Cells cells = orientationOf(placement.type, placement.rotations, placement.flips).cells;
  for (Cell& cell : cells) cell = {cell.x + placement.x, cell.y + placement.y};
  return cells;
}

Placement placementCovering(Cells cells) {
  const Cell corner = topLeft(cells);
  for (Cell& cell : cells) cell = {cell.x - corner.x, cell.y - corner.y};
  std::ranges::sort(cells);
  const auto found = std::ranges::find(orientations(), cells, &Orientation::cells);
  if (found == orientations().end()) throw std::invalid_argument("These cells are no pentomino.");
  return placementOf(*found, corner.x, corner.y);
}

Placement transformed(const Placement& placement, Symmetry symmetry, int width, int height) {
  Cells cells = cellsOf(placement);
  for (Cell& cell : cells) cell = symmetry.apply(cell, width, height);
  return placementCovering(cells);
}

Solution transformed(const Solution& solution, Symmetry symmetry, int width, int height) {
  Solution result;
  result.reserve(solution.size());
  for (const Placement& placement : solution)
    result.push_back(transformed(placement, symmetry, width, height));
  std::ranges::sort(result);
  return result;
}
