#include "solver/Pin.h"

#include <algorithm>

namespace {

std::vector<Placement> placesOf(int type, const Shape& shape) {
  std::vector<Placement> places;
  for (const Orientation& orientation : orientations()) {
    if (orientation.type != type) continue;
    for (int x = 0; x < shape.width(); ++x)
      for (int y = 0; y < shape.height(); ++y) {
        const Placement place = placementOf(orientation, x, y);
        if (std::ranges::all_of(cellsOf(place), [&](Cell cell) { return shape.contains(cell); }))
          places.push_back(place);
      }
  }
  return places;
}

/// The place if it is the leftmost of its set.
std::optional<PinnedPlace> pinned(const Placement& place, const Shape& shape,
                                  const std::vector<Symmetry>& symmetries, Counting counting) {
  PinnedPlace result{place, {}};
  std::vector<Placement> reached;
  std::vector<Symmetry> staying;
  for (const Symmetry symmetry : symmetries) {
    const Placement image = transformed(place, symmetry, shape.width(), shape.height());
    if (image < place) return std::nullopt;
    if (image == place) staying.push_back(symmetry);
    if (std::ranges::find(reached, image) != reached.end()) continue;
    reached.push_back(image);
    result.harvest.images.push_back(symmetry);
  }
  if (counting == Counting::UpToSymmetry) result.harvest = {staying, {Symmetry{}}};
  return result;
}

}  // namespace

std::optional<Pin> choosePin(const Shape& shape, const PieceSet& supply, Counting counting) {
  const std::vector<Symmetry> symmetries = symmetriesOf(shape);
  const bool allAreUsed = supply.total() * PENTO::kCells == shape.area();
  if (symmetries.size() == 1 || !allAreUsed) return std::nullopt;
  std::optional<Pin> best;
  for (int type = 0; type < PENTO::kTypes; ++type) {
    if (supply[type] != 1) continue;
    Pin pin{type, {}};
    for (const Placement& place : placesOf(type, shape))
      if (auto kept = pinned(place, shape, symmetries, counting)) pin.places.push_back(*kept);
    if (!best || pin.places.size() < best->places.size()) best = pin;
  }
  return best;
}
