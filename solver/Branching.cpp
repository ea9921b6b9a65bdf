#include "solver/Branching.h"

#include <algorithm>

namespace solver {

namespace {

bool fits(const Orientation& orientation, int x, int y, const Shape& shape) {
  return std::ranges::all_of(orientation.cells, [&](Cell cell) {
    return shape.contains({x + cell.x, y + cell.y});
  });
}

std::vector<Placement> placesOf(int type, const Shape& shape) {
  std::vector<Placement> places;
  for (const Orientation& orientation : orientations()) {
    if (orientation.type != type) continue;
    for (int x = 0; x < shape.width(); ++x)
      for (int y = 0; y < shape.height(); ++y)
        if (fits(orientation, x, y, shape)) places.push_back(placementOf(orientation, x, y));
  }
  return places;
}

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
