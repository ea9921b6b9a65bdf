#pragma once

#include <array>
#include <vector>

#include "model/PENTO.h"
#include "solver/Shape.h"

namespace solver {

/// One way to turn and mirror a piece type, with the counters of a PENTO that give it.
///
/// Shape: five cells in column order (x first), the smallest x and y being 0.
struct Orientation {
  int type = 0, rotations = 0, flips = 0;
  std::array<Cell, PENTO::kCells> cells{};
};

inline constexpr int kOrientations = 63;

/// All distinct orientations of the twelve types, taken from the model's own pieces: type by type,
/// unmirrored ones first, then by number of turns.
const std::array<Orientation, kOrientations>& orientations();

/// A piece of `type` with the top-left corner of its bounding box at (x, y), turned `rotations`
/// times and then mirrored `flips` times: a PENTO with these counters covers the same cells.
struct Placement {
  int type = 0, x = 0, y = 0, rotations = 0, flips = 0;
  auto operator<=>(const Placement&) const = default;
};

/// A tiling: every cell of a shape is covered by exactly one placement.
using Solution = std::vector<Placement>;

/// Orientation `orientation` moved to (x, y).
Placement placementOf(const Orientation& orientation, int x, int y);

/// The five cells that a placement covers, in column order.
std::array<Cell, PENTO::kCells> cellsOf(const Placement& placement);

/// All placements of a type in a shape, orientation by orientation.
std::vector<Placement> placesOf(int type, const Shape& shape);

/// The placement that covers `cells`.
/// Errors: std::invalid_argument when the five cells are no pentomino.
Placement placementCovering(std::array<Cell, PENTO::kCells> cells);

/// Where a placement comes to lie when its box of width x height cells is laid down by `symmetry`.
Placement transformed(const Placement& placement, Symmetry symmetry, int width, int height);
/// The same for a tiling; its placements keep their order.
Solution transformed(const Solution& solution, Symmetry symmetry, int width, int height);

}  // namespace solver
