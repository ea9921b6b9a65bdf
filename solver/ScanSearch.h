#pragma once

#include <algorithm>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "solver/PiecesLeft.h"
#include "solver/Window.h"
#include "solver/Work.h"

namespace solver {

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
/// `Left` keeps the pieces that may still be laid (see PiecesLeft.h). Tables and shape outlive the
/// search.
template <class Bits, class Left>
class ScanSearch {
 public:
  ScanSearch(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape, const PieceSet& supply)
      : tables_(&tables),
        layout_(shape.layout()),
        steps_(static_cast<std::size_t>(shape.end()) / PENTO::kCells + 2),
        siblings_(steps_.size()),
        room_(kFirstRoom),
        stack_(std::make_unique_for_overwrite<State[]>(room_)) {
    State& first = stack_[0];
    first.window = layout_.empty(0);
    first.left = Left(supply, tables);
    first.position = first.pieces = 0;
    layout_.advance(first.window, first.position);
    first.candidates = tables.fitting(first.window) & first.left.allowed();
  }

  /// Calls found(steps, window, position) for every way to cover all positions before `goal`;
  /// position is the first free cell then, and found returns false to end the search. Returns false
  /// when it was ended, or interrupted by the meter: then the next call goes on from there.
  template <class Found>
  bool run(int goal, WorkMeter& meter, Found&& found);

  /// The states that wait for their turn; none when it is done.
  std::size_t waiting() const { return size_; }
  /// Takes every second state that waits over into a search of its own. Together both go on as the
  /// one would have.
  ScanSearch split();

  /// How much of the tree an interrupted search has seen, 0 to 1, when the children of a state are
  /// taken for equally large.
  double fractionDone() const;

 private:
  /// Waits for a piece on its first free cell.
  struct State {
    Bits window;
    OrientationSet candidates;
    Left left;
    int position;
    std::uint16_t pieces;       ///< laid so far
    std::uint16_t orientation;  ///< of the last one
  };

  static constexpr std::size_t kFirstRoom = 256;  ///< mostly enough: fresh pages are slow

  /// Is where `other` is, with an empty stack of the same size.
  explicit ScanSearch(const ScanSearch& other, std::unique_ptr<State[]> stack)
      : tables_(other.tables_),
        layout_(other.layout_),
        steps_(other.steps_),
        siblings_(other.siblings_),
        room_(other.room_),
        stack_(std::move(stack)),
        size_(0) {}

  void makeRoom();

  const WindowTables<Bits>* tables_;
  Layout<Bits> layout_;
  std::vector<Step> steps_;
  std::vector<std::int64_t> siblings_;  ///< by pieces laid: how many states came from one
  std::size_t room_;                    ///< of the stack
  std::unique_ptr<State[]> stack_;
  std::size_t size_ = 1;
};

template <class Bits, class Left>
template <class Found>
bool ScanSearch<Bits, Left>::run(int goal, WorkMeter& meter, Found&& found) {
  const WindowTables<Bits>& tables = *tables_;
  const Layout<Bits> layout = layout_;
  while (size_ > 0) {
    if (--size_ + kOrientations > room_) makeRoom();
    State* const place = stack_.get() + size_;
    State* next = place;
    // Read one by one: a wide load would wait for the narrow stores that have just made them.
    const Bits base = next->window;
    const Left left = next->left;
    const int from = next->position;
    const unsigned pieces = next->pieces;
    const std::uint16_t own = next->orientation;
    if (pieces > 0) steps_[pieces - 1].orientation = own;
    steps_[pieces].position = from;
    for (OrientationSet candidates = next->candidates; candidates != 0;
         candidates &= candidates - 1) {
      const int orientation = std::countr_zero(candidates);
      Bits window = base | tables.mask(orientation);
      int position = from;
      layout.advance(window, position);
      if (position >= goal) {
        steps_[pieces].orientation = orientation;
        const bool goesOn = meter.node();
        if (!found(std::span(steps_.data(), pieces + 1), window, position)) return false;
        if (goesOn) continue;
        // Interrupted in the middle of a state, which then waits with what is left of it.
        *next++ = {base, candidates & (candidates - 1),      left,
                   from, static_cast<std::uint16_t>(pieces), own};
        size_ += static_cast<std::size_t>(next - place);
        return false;
      }
      const Left rest = left.without(orientation, tables);
      const OrientationSet fitting = tables.fitting(window) & rest.allowed();
      next->window = window;
      next->left = rest;
      next->candidates = fitting;
      next->position = position;
      next->pieces = static_cast<std::uint16_t>(pieces + 1);
      next->orientation = static_cast<std::uint16_t>(orientation);
      next += static_cast<int>(fitting != 0) & static_cast<int>(!tables.hasIsolatedCell(window));
    }
    siblings_[pieces + 1] = std::max<std::int64_t>(1, next - place);
    size_ += static_cast<std::size_t>(next - place);
    if (pieces > 0 && !meter.node()) return false;
  }
  return true;
}

template <class Bits, class Left>
ScanSearch<Bits, Left> ScanSearch<Bits, Left>::split() {
  ScanSearch half(*this, std::make_unique_for_overwrite<State[]>(room_));
  const std::size_t all = std::exchange(size_, 0);
  for (std::size_t i = 0; i < all; ++i) {
    ScanSearch& owner = i % 2 == 0 ? *this : half;
    owner.stack_[owner.size_++] = stack_[i];
  }
  return half;
}

template <class Bits, class Left>
void ScanSearch<Bits, Left>::makeRoom() {
  auto larger = std::make_unique_for_overwrite<State[]>(2 * room_);
  std::copy_n(stack_.get(), room_, larger.get());
  stack_ = std::move(larger);
  room_ *= 2;
}

template <class Bits, class Left>
double ScanSearch<Bits, Left>::fractionDone() const {
  double left = 0, weight = 1;  // of one state at this depth
  unsigned depth = 0;
  for (const State& state : std::span(stack_.get(), size_)) {
    for (; depth < state.pieces; ++depth) weight /= static_cast<double>(siblings_[depth + 1]);
    left += weight;
  }
  return 1 - left;
}

/// Calls search with the kind of ScanSearch that serves the supply, as a type: search<Left>().
template <class Search>
auto withPiecesLeft(const PieceSet& supply, Search&& search) {
  const int most = std::ranges::max(supply.count);
  if (most <= 1) return search.template operator()<OneEach>();
  if (most <= CountedPieces<Bits64>::kMost)
    return search.template operator()<CountedPieces<Bits64>>();
  return search.template operator()<CountedPieces<Bits128>>();
}

/// One whole search.
template <class Bits, class Found>
bool scanAll(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape, const PieceSet& supply,
             int goal, WorkMeter& meter, Found&& found) {
  return withPiecesLeft(supply, [&]<class Left>() {
    return ScanSearch<Bits, Left>(tables, shape, supply).run(goal, meter, found);
  });
}

}  // namespace solver
