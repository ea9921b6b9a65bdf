#include "solver/LongScan.h"
#include "solver/Strategies.h"

namespace solver {

void branchAndScan(const Shape& shape, const PieceSet& supply, const Branching& branching,
                   Delivery& delivery, WorkMeter& meter) {
  PieceSet others = supply;
  --others[branching.type];
  Scan<Bits64> scan(shape);
  for (const Branch& place : branching.places) {
    Shape rest = shape;
    for (const Cell cell : cellsOf(place.placement)) rest.set(cell, false);
    scan.layout = ScanShape<Bits64>(rest);
    const auto take = [&](Delivery& taker, std::span<const Step> steps) {
      return taker.take(place.breaking, [&] {
        Solution solution = scan.solutionOf(steps);
        solution.push_back(place.placement);
        return solution;
      });
    };
    if (rest.area() == 0) {
      if (!take(delivery, {})) return;
      continue;
    }
    if (!scanAll(scan, others, delivery, meter, take)) return;
  }
}

}  // namespace solver
