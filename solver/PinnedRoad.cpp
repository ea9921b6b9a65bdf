#include "solver/Roads.h"
#include "solver/Scan.h"

namespace Roads {

void pinned(const Shape& shape, const PieceSet& supply, const Pin& pin, Delivery& delivery,
            WorkMeter& meter) {
  PieceSet others = supply;
  --others[pin.type];
  Scan<Bits64> scan(shape);
  for (const PinnedPlace& place : pin.places) {
    Shape rest = shape;
    for (const Cell cell : cellsOf(place.placement)) rest.set(cell, false);
    scan.layout = ScanShape<Bits64>(rest);
    const auto take = [&](std::span<const Step> steps, Bits64, int) {
      return delivery.take(place.harvest, [&] {
        Solution solution = scan.solutionOf(steps);
        solution.push_back(place.placement);
        return solution;
      });
    };
    if (!scanAll(scan.tables, scan.layout, others, scan.layout.end(), meter, take)) return;
  }
}

}  // namespace Roads
