#pragma once

#include <optional>

#include "solver/Delivery.h"
#include "solver/PieceSet.h"

namespace solver {

/// A place of the piece that is branched on.
struct Branch {
  Placement placement;
  SymmetryBreaking breaking;  ///< what a solution with the piece here stands for
};

/// Breaking the symmetry of a shape by branching on one piece: a piece that every solution contains
/// exactly once is kept to one of each set of places that the symmetries lay onto each other.
struct Branching {
  int type = 0;
  std::vector<Branch> places;
};

/// The branching of the type with the fewest places, each the leftmost of its set; none where the
/// shape has no symmetry, or no piece must be used exactly once. `shape` is trimmed.
std::optional<Branching> chooseBranching(const Shape& shape, const PieceSet& supply,
                                         Counting counting);

}  // namespace solver
