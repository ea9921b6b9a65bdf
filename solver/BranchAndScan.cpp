#include "solver/Scan.h"
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
    const auto take = [&](std::span<const Step> steps, Bits64, int) {
      return delivery.take(place.breaking, [&] {
        Solution solution = scan.solutionOf(steps);
        solution.push_back(place.placement);
        return solution;
      });
    };
    if (rest.area() == 0) {
      if (!take({}, 0, 0)) return;
      continue;
    }
    if (!scanAll(scan.tables, scan.layout, others, scan.layout.end(), meter, take)) return;
  }
}

}  // namespace solver
