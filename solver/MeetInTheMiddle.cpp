#include "solver/Profiles.h"
#include "solver/Scan.h"
#include "solver/Strategies.h"

namespace solver {

namespace {

constexpr int kFewestPieces = 6;
/// Where the parts meet, in hundredths of the cells. With a branching the first part is small, so
/// it may go on for longer, and for the branching's own sake for longer still.
constexpr std::size_t kMeetAlone = 33, kMeetAt = 42, kMeetAtMost = 50;
/// Partial tilings beyond which the search gives up.
constexpr std::size_t kMostPartials = 500'000;

/// Columns: profiles tell 4096 positions.
constexpr int kWidest = 256;
constexpr std::size_t kMostPieces = FinishingSets::kMostPieces;

/// A tiling of the first part. Where its pieces lie follows from their order.
struct Partial {
  std::uint32_t profile = 0;
  std::uint16_t used = 0, branch = 0;
  std::uint8_t pieces = 0;
  std::array<std::uint8_t, kMostPieces> orientations{};
};

/// What the first part leaves behind. Kept from call to call, as the storage of the profiles is:
/// fresh pages would cost more than the search.
template <class Bits>
struct Memory {
  typename Profiles<Bits>::Storage storage;
  std::vector<Partial> partials;
};

template <class Bits>
int positionOf(const Shape& shape, std::size_t hundredths) {
  const std::vector<Cell> cells = shape.cells();
  const Cell cell = cells[cells.size() * hundredths / 100];
  return cell.x * kStride<Bits> + cell.y;
}

/// The last position where the piece branched on may have its first cell.
template <class Bits>
int lastPosition(const Branching& branching) {
  int last = 0;
  for (const Branch& place : branching.places) {
    const Cell first = cellsOf(place.placement)[0];
    last = std::max(last, first.x * kStride<Bits> + first.y);
  }
  return last;
}

template <class Bits>
class MeetInTheMiddle {
  using Pieces = FinishingSets::Pieces;

 public:
  MeetInTheMiddle(const Shape& shape, const PieceSet& supply, Counting counting,
                  const std::optional<Branching>& branching, WorkMeter& meter, Memory<Bits>& memory)
      : shape_(shape),
        plain_(plainBreaking(shape, counting)),
        scan_(shape),
        meter_(meter),
        memory_(memory),
        others_(supply),
        meetAt_(positionOf<Bits>(shape, kMeetAlone)) {
    memory.partials.clear();
    memory.partials.reserve(std::size_t{1} << 16);
    // A branching that the first part does not always contain is of no use: the profiles do not
    // know it.
    if (!branching || lastPosition<Bits>(*branching) >= positionOf<Bits>(shape, kMeetAtMost))
      return;
    branching_ = &*branching;
    --others_[branching->type];
    meetAt_ = std::max(positionOf<Bits>(shape, kMeetAt), lastPosition<Bits>(*branching) + 1);
  }

  /// False when there is too much to hold, or the meter has ended the search.
  bool run() {
    profiles_.emplace(scan_.tables, scan_.layout, others_, memory_.storage);
    if (!branching_) {
      layouts_.push_back(scan_.layout);
    } else {
      for (const Branch& place : branching_->places) {
        Shape rest = shape_;
        for (const Cell cell : cellsOf(place.placement)) rest.set(cell, false);
        layouts_.emplace_back(rest);
      }
    }
    for (std::size_t branch = 0; branch < layouts_.size(); ++branch)
      if (!searchFirstPart(branch)) return false;
    if (!profiles_->grow(meter_)) return false;
    profiles_->finish();
    return true;
  }

  void join(Delivery& delivery) {
    keepFinishable();
    std::vector<Step> steps;
    for (const Partial& partial : memory_.partials) {
      const SymmetryBreaking& breaking =
          branching_ ? branching_->places[partial.branch].breaking : plain_;
      const auto take = [&](const std::vector<Step>& whole) {
        return delivery.take(breaking, [&] { return solutionOf(whole, partial); });
      };
      retrace(partial, steps);
      if (!profiles_->walk(partial.profile, left(partial), steps, take)) return;
    }
  }

 private:
  bool searchFirstPart(std::size_t branch) {
    const auto keep = [&](std::span<const Step> steps, Bits window, int position) {
      Partial& partial = memory_.partials.emplace_back();
      for (const Step& step : steps) {
        partial.used |= static_cast<std::uint16_t>(profiles_->piece(step.orientation));
        partial.orientations[partial.pieces++] = static_cast<std::uint8_t>(step.orientation);
      }
      partial.profile = profiles_->idOf(window, position, others_.total() - partial.pieces);
      partial.branch = static_cast<std::uint16_t>(branch);
      return memory_.partials.size() < kMostPartials;
    };
    return scanAll(scan_.tables, layouts_[branch], others_, meetAt_, meter_, keep);
  }

  Pieces left(const Partial& partial) const { return profiles_->all() & ~Pieces{partial.used}; }

  /// Drops the partial tilings that cannot be finished. Which these are cannot be predicted, so it
  /// is no branch.
  void keepFinishable() {
    auto kept = memory_.partials.begin();
    for (const Partial& partial : memory_.partials) {
      const bool finishable = profiles_->canFinish(partial.profile, left(partial));
      *kept = partial;
      kept += finishable;
    }
    memory_.partials.erase(kept, memory_.partials.end());
  }

  /// The steps of a partial tiling, laid once more.
  void retrace(const Partial& partial, std::vector<Step>& steps) const {
    const ScanShape<Bits>& layout = layouts_[partial.branch];
    steps.clear();
    Bits window = layout.empty(0);
    int position = 0;
    layout.advance(window, position);
    for (std::size_t i = 0; i < partial.pieces; ++i) {
      const int orientation = partial.orientations[i];
      steps.push_back({orientation, position});
      window |= scan_.tables.mask(orientation);
      layout.advance(window, position);
    }
  }

  Solution solutionOf(const std::vector<Step>& steps, const Partial& partial) const {
    Solution solution = scan_.solutionOf(steps);
    if (branching_) solution.push_back(branching_->places[partial.branch].placement);
    return solution;
  }

  const Shape& shape_;
  const SymmetryBreaking plain_;
  const Scan<Bits> scan_;
  WorkMeter& meter_;
  Memory<Bits>& memory_;
  PieceSet others_;
  int meetAt_;
  const Branching* branching_ = nullptr;
  std::vector<ScanShape<Bits>> layouts_;  ///< of what is left when the branching's piece lies
  std::optional<Profiles<Bits>> profiles_;
};

template <class Bits>
bool meet(const Shape& shape, const PieceSet& supply, Counting counting,
          const std::optional<Branching>& branching, Delivery& delivery, WorkMeter& meter) {
  thread_local Memory<Bits> memory;
  MeetInTheMiddle<Bits> search(shape, supply, counting, branching, meter, memory);
  if (!search.run()) return !meter.work.complete;
  search.join(delivery);
  return true;
}

}  // namespace

bool canMeet(const Shape& shape, const PieceSet& supply) {
  return std::ranges::max(supply.count) == 1 && supply.total() >= kFewestPieces &&
         supply.total() * PENTO::kCells == shape.area() && shape.width() <= kWidest;
}

bool meetInTheMiddle(const Shape& shape, const PieceSet& supply, Counting counting,
                     const std::optional<Branching>& branching, Delivery& delivery,
                     WorkMeter& meter) {
  const auto search = shape.height() <= kTallestColumn<Bits32> ? meet<Bits32> : meet<Bits64>;
  return search(shape, supply, counting, branching, delivery, meter);
}

}  // namespace solver
