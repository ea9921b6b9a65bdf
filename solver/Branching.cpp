#include "solver/Branching.h"

#include <algorithm>

namespace solver {

namespace {

/// The place if it is the leftmost of its set.
std::optional<Branch> branchAt(const Placement& place, const Shape& shape,
                               const std::vector<Symmetry>& symmetries, Counting counting) {
  Branch result{place, {}};
  std::vector<Placement> reached;
  std::vector<Symmetry> staying;
  for (const Symmetry symmetry : symmetries) {
    const Placement image = transformed(place, symmetry, shape.width(), shape.height());
    if (image < place) return std::nullopt;
    if (image == place) staying.push_back(symmetry);
    if (std::ranges::find(reached, image) != reached.end()) continue;
    reached.push_back(image);
    result.breaking.images.push_back(symmetry);
  }
  if (counting == Counting::UpToSymmetry) result.breaking = {staying, {Symmetry{}}};
  return result;
}

}  // namespace

std::optional<Branching> chooseBranching(const Shape& shape, const PieceSet& supply,
                                         Counting counting) {
  const std::vector<Symmetry> symmetries = symmetriesOf(shape);
  const bool allAreUsed = supply.total() * PENTO::kCells == shape.area();
  if (symmetries.size() == 1 || !allAreUsed) return std::nullopt;
  int best = -1;
  std::vector<Placement> places;
  for (int type = 0; type < PENTO::kTypes; ++type) {
    if (supply[type] != 1) continue;
    std::vector<Placement> some = placesOf(type, shape);
    if (best >= 0 && some.size() >= places.size()) continue;
    best = type;
    places = std::move(some);
  }
  if (best < 0) return std::nullopt;
  Branching branching{best, {}};
  for (const Placement& place : places)
    if (auto kept = branchAt(place, shape, symmetries, counting)) branching.places.push_back(*kept);
  return branching;
}

}  // namespace solver
