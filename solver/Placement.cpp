#include "solver/Placement.h"

#include <algorithm>
#include <stdexcept>

namespace solver {

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

constexpr std::size_t kCounters = 8;  // 4 turns, mirrored or not

/// What is asked of an orientation again and again.
struct OrientationTables {
  std::array<std::size_t, PENTO::kTypes * kCounters> index{};  ///< by type and counters
  std::array<Cell, kOrientations> size{};                      ///< of the bounding box
  std::array<std::array<std::size_t, kSymmetries.size()>, kOrientations> image{};

  OrientationTables();
};

std::size_t counters(int type, int rotations, int flips) {
  return static_cast<std::size_t>(type) * kCounters +
         static_cast<std::size_t>(flips * 4 + rotations);
}

std::size_t indexOf(const Cells& cells) {
  return static_cast<std::size_t>(std::ranges::find(orientations(), cells, &Orientation::cells) -
                                  orientations().begin());
}

Cell sizeOf(const Cells& cells) {
  return {std::ranges::max(cells, {}, &Cell::x).x + 1, std::ranges::max(cells, {}, &Cell::y).y + 1};
}

OrientationTables::OrientationTables() {
  for (int type = 0; type < PENTO::kTypes; ++type)
    for (int turn = 0; turn < 8; ++turn)
      index[counters(type, turn % 4, turn / 4)] =
          indexOf(orientationOf(type, turn % 4, turn / 4).cells);
  for (std::size_t i = 0; i < kOrientations; ++i) {
    size[i] = sizeOf(orientations()[i].cells);
    for (std::size_t j = 0; j < kSymmetries.size(); ++j) {
      Cells cells = orientations()[i].cells;
      for (Cell& cell : cells) cell = kSymmetries[j].apply(cell, size[i].x, size[i].y);
      std::ranges::sort(cells);
      image[i][j] = indexOf(cells);
    }
  }
}

const OrientationTables& tables() {
  static const OrientationTables all;
  return all;
}

std::size_t indexOf(const Placement& placement) {
  return tables().index.at(counters(placement.type, placement.rotations, placement.flips));
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
  Cells cells = orientations()[indexOf(placement)].cells;
  for (Cell& cell : cells) cell = {cell.x + placement.x, cell.y + placement.y};
  return cells;
}

std::vector<Placement> placesOf(int type, const Shape& shape) {
  std::vector<Placement> places;
  for (const Orientation& orientation : orientations()) {
    if (orientation.type != type) continue;
    for (int x = 0; x < shape.width(); ++x)
      for (int y = 0; y < shape.height(); ++y)
        if (std::ranges::all_of(orientation.cells, [&](Cell cell) {
              return shape.contains({x + cell.x, y + cell.y});
            }))
          places.push_back(placementOf(orientation, x, y));
  }
  return places;
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
  const std::size_t orientation = indexOf(placement);
  const Cell size = tables().size[orientation];
  const Cell a = symmetry.apply({placement.x, placement.y}, width, height);
  const Cell b =
      symmetry.apply({placement.x + size.x - 1, placement.y + size.y - 1}, width, height);
  const auto which = static_cast<std::size_t>(symmetry.turns + (symmetry.mirrored ? 4 : 0));
  return placementOf(orientations()[tables().image[orientation][which]], std::min(a.x, b.x),
                     std::min(a.y, b.y));
}

Solution transformed(const Solution& solution, Symmetry symmetry, int width, int height) {
  Solution result;
  result.reserve(solution.size());
  for (const Placement& placement : solution)
    result.push_back(transformed(placement, symmetry, width, height));
  return result;
}

}  // namespace solver
