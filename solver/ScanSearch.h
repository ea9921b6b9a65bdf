#pragma once

#include <algorithm>
#include <span>
#include <vector>

#include "solver/PieceSet.h"
#include "solver/Window.h"
#include "solver/Work.h"

/// One piece of a scan: the orientation's index in the tables, the position of its first cell.
struct Step {
  int orientation = 0, position = 0;
};

/// The general search: lay every piece that fits onto the first free cell, depth first, over the
/// rolling window. A piece that leaves an isolated cell or a first free cell that nothing fits onto
/// is dropped at once; dropping is arithmetic, not a branch, because it cannot be predicted.
///
/// Tables, shape and meter outlive the search.
template <class Bits>
class ScanSearch {
 public:
  ScanSearch(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape, const PieceSet& supply,
             WorkMeter& meter)
      : tables_(tables), shape_(shape), meter_(meter), supply_(supply) {
    for (int type = 0; type < PENTO::kTypes; ++type)
      if (supply[type] > 0) start_.allowed |= tables.ofType(type);
    start_.window = shape.empty(0);
    shape.advance(start_.window, start_.position);
  }

  /// Calls found(steps, window, position) for every way to cover all positions before `goal`;
  /// position is the first free cell then, and found returns false to end the search. Returns false
  /// when the search was ended early.
  template <class Found>
  bool run(int goal, Found&& found);

 private:
  struct Level {
    Bits window = 0;
    int position = 0;
    OrientationSet candidates = 0, allowed = 0;
  };

  OrientationSet candidatesOf(const Level& level) const {
    return tables_.fitting(level.window) & level.allowed;
  }

  const WindowTables<Bits>& tables_;
  const ScanShape<Bits>& shape_;
  WorkMeter& meter_;
  PieceSet supply_;
  Level start_;
};

template <class Bits>
template <class Found>
bool ScanSearch<Bits>::run(int goal, Found&& found) {
  const auto most = static_cast<std::size_t>(shape_.end()) / PENTO::kCells + 2;
  std::vector<Level> levels(most);
  std::vector<Step> steps(most);
  std::array<int, PENTO::kTypes> left = supply_.count;

  levels[0] = start_;
  levels[0].candidates = candidatesOf(start_);
  for (std::size_t depth = 0;;) {
    Level& level = levels[depth];
    if (level.candidates == 0) {
      if (depth == 0) return true;
      --depth;
      ++left[static_cast<std::size_t>(tables_.type(steps[depth].orientation))];
      continue;
    }
    const int orientation = std::countr_zero(level.candidates);
    level.candidates &= level.candidates - 1;
    const auto type = static_cast<std::size_t>(tables_.type(orientation));
    steps[depth] = {orientation, level.position};

    Level& child = levels[depth + 1];
    child.window = level.window | tables_.mask(orientation);
    child.position = level.position;
    shape_.advance(child.window, child.position);
    if (child.position >= goal) {
      if (!meter_.node() ||
          !found(std::span(steps.data(), depth + 1), child.window, child.position))
        return false;
      continue;
    }
    child.allowed =
        left[type] == 1 ? level.allowed & ~tables_.ofType(static_cast<int>(type)) : level.allowed;
    child.candidates = candidatesOf(child);
    const bool alive = child.candidates != 0 && !tables_.hasIsolatedCell(child.window);
    left[type] -= alive;
    depth += alive;
    if (alive && !meter_.node()) return false;
  }
}
