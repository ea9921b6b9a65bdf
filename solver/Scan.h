#pragma once

#include "solver/ScanSearch.h"

namespace solver {

/// Tables and layout of one shape whose columns are at most kTallestColumn cells high.
template <class Bits>
struct Scan {
  const std::shared_ptr<const WindowTables<Bits>> shared;
  const WindowTables<Bits>& tables;
  ScanShape<Bits> layout;

  explicit Scan(const Shape& shape, std::shared_ptr<const WindowTables<Bits>> from =
                                        WindowTables<Bits>::of(kAwkwardFirst))
      : shared(std::move(from)), tables(*shared), layout(shape) {}

  Placement placementOf(const Step& step) const {
    const Orientation& orientation = tables.model(step.orientation);
    return solver::placementOf(orientation, step.position / kStride<Bits>,
                               step.position % kStride<Bits> - orientation.cells[0].y);
  }
  Solution solutionOf(std::span<const Step> steps) const {
    Solution solution;
    solution.reserve(steps.size());
    for (const Step& step : steps) solution.push_back(placementOf(step));
    return solution;
  }
};

}  // namespace solver
