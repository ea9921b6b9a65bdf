#pragma once

#include "solver/ScanSearch.h"

/// Tables and layout of one shape whose columns are at most kTallestColumn cells high.
template <class Bits>
struct Scan {
  std::shared_ptr<const WindowTables<Bits>> made;
  const WindowTables<Bits>& tables;
  ScanShape<Bits> layout;

  explicit Scan(const Shape& shape, const TypeOrder& order = kAwkwardFirst)
      : made(WindowTables<Bits>::of(order)), tables(*made), layout(shape) {}

  Placement placementOf(const Step& step) const {
    const Orientation& orientation = tables.model(step.orientation);
    return ::placementOf(orientation, step.position / kStride<Bits>,
                         step.position % kStride<Bits> - orientation.cells[0].y);
  }
  Solution solutionOf(std::span<const Step> steps) const {
    Solution solution;
    solution.reserve(steps.size());
    for (const Step& step : steps) solution.push_back(placementOf(step));
    return solution;
  }
};
