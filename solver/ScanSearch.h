#pragma once

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

#include "solver/PiecesLeft.h"
#include "solver/Window.h"
#include "solver/Work.h"

/// One piece of a scan: the orientation's index in the tables, the position of its first cell.
struct Step {
  int orientation = 0, position = 0;
};

/// The general search: lay every piece that fits onto the first free cell, depth first, over the
/// rolling window. A piece that leaves an isolated cell or a first free cell that nothing fits onto
/// is dropped at once; dropping is arithmetic, not a branch, because it cannot be predicted. All
/// pieces of one cell are laid one after the other, which a processor can do side by side, and the
/// states that live on a stack until their turn comes.
///
/// Tables, shape and meter outlive the search.
template <class Bits>
class ScanSearch {
 public:
  ScanSearch(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape, const PieceSet& supply,
             WorkMeter& meter)
      : tables_(tables), shape_(shape), meter_(meter), supply_(supply) {}

  /// Calls found(steps, window, position) for every way to cover all positions before `goal`;
  /// position is the first free cell then, and found returns false to end the search. Returns false
  /// when the search was ended early.
  template <class Found>
  bool run(int goal, Found&& found) {
    const int most = std::ranges::max(supply_.count);
    if (most <= 1) return run<OneEach>(goal, found);
    if (most <= CountedPieces<Bits64>::kMost) return run<CountedPieces<Bits64>>(goal, found);
    return run<CountedPieces<Bits128>>(goal, found);
  }

 private:
  /// A state whose first free cell waits for its piece.
  template <class Left>
  struct State {
    Bits window;
    OrientationSet candidates;
    Left left;
    int position;
    std::uint16_t pieces;       ///< laid so far
    std::uint16_t orientation;  ///< of the last one
  };

  template <class Left, class Found>
  bool run(int goal, Found& found);

  const WindowTables<Bits>& tables_;
  const ScanShape<Bits>& shape_;
  WorkMeter& meter_;
  PieceSet supply_;
};

template <class Bits>
template <class Left, class Found>
bool ScanSearch<Bits>::run(int goal, Found& found) {
  const auto most = static_cast<std::size_t>(shape_.end()) / PENTO::kCells + 2;
  std::vector<Step> steps(most);
  const auto stack = std::make_unique_for_overwrite<State<Left>[]>(most * kOrientations);
  State<Left>* top = stack.get();
  const WindowTables<Bits>& tables = tables_;
  const Layout<Bits> layout = shape_.layout();

  top->window = layout.empty(0);
  top->left = Left(supply_, tables);
  top->position = top->pieces = 0;
  layout.advance(top->window, top->position);
  top->candidates = tables.fitting(top->window) & top->left.allowed();
  for (++top; top != stack.get();) {
    --top;
    // Read one by one: a wide load would wait for the narrow stores that have just made them.
    const Bits base = top->window;
    const Left left = top->left;
    const int from = top->position;
    const unsigned pieces = top->pieces;
    if (pieces > 0) {
      if (!meter_.node()) return false;
      steps[pieces - 1].orientation = top->orientation;
    }
    steps[pieces].position = from;
    for (OrientationSet candidates = top->candidates; candidates != 0;
         candidates &= candidates - 1) {
      const int orientation = std::countr_zero(candidates);
      Bits window = base | tables.mask(orientation);
      int position = from;
      layout.advance(window, position);
      if (position >= goal) {
        steps[pieces].orientation = orientation;
        if (!meter_.node() || !found(std::span(steps.data(), pieces + 1), window, position))
          return false;
        continue;
      }
      const Left rest = left.without(orientation, tables);
      const OrientationSet next = tables.fitting(window) & rest.allowed();
      top->window = window;
      top->left = rest;
      top->candidates = next;
      top->position = position;
      top->pieces = static_cast<std::uint16_t>(pieces + 1);
      top->orientation = static_cast<std::uint16_t>(orientation);
      top += static_cast<int>(next != 0) & static_cast<int>(!tables.hasIsolatedCell(window));
    }
  }
  return true;
}
