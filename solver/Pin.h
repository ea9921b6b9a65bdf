#pragma once

#include <optional>

#include "solver/Delivery.h"
#include "solver/PieceSet.h"

/// Using up the symmetry of a shape: a piece that every solution contains exactly once is kept to
/// one of each set of places that the symmetries lay onto each other.
struct PinnedPlace {
  Placement placement;
  Harvest harvest;  ///< what a solution with the piece here stands for
};

struct Pin {
  int type = 0;
  std::vector<PinnedPlace> places;
};

/// The pin of the type with the fewest places, each the leftmost of its set; none where the shape
/// has no symmetry, or no piece must be used exactly once. `shape` is trimmed.
std::optional<Pin> choosePin(const Shape& shape, const PieceSet& supply, Counting counting);
