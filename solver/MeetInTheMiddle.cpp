#include "solver/Profiles.h"
#include "solver/Scan.h"
#include "solver/Strategies.h"

namespace solver {

namespace {

constexpr int kFewestPieces = 6;
/// Where the parts meet, in hundredths of the cells; later only for the sake of the branching.
constexpr std::size_t kMeetAt = 42, kMeetAtMost = 50;
/// Steps of all partial tilings beyond which the search gives up.
constexpr std::size_t kMostSteps = 4'000'000;

/// A partial tiling: its steps lie behind those of the others in one list.
struct Partial {
  Profiles::Id profile = 0;
  Profiles::Pieces used = 0;
  std::uint32_t firstStep = 0, steps = 0;
  const Branch* branch = nullptr;
};

/// What the first part leaves behind. Kept from call to call, as the storage of the profiles is:
/// fresh pages would cost more than the search.
struct Memory {
  Profiles::Storage storage;
  std::vector<Partial> partials;
  std::vector<Step> steps;
};

int positionOf(const Shape& shape, std::size_t hundredths) {
  const std::vector<Cell> cells = shape.cells();
  const Cell cell = cells[cells.size() * hundredths / 100];
  return cell.x * kStride<Bits64> + cell.y;
}

/// The last position where the piece branched on may have its first cell.
int lastPosition(const Branching& branching) {
  int last = 0;
  for (const Branch& place : branching.places) {
    const Cell first = cellsOf(place.placement)[0];
    last = std::max(last, first.x * kStride<Bits64> + first.y);
  }
  return last;
}

class MeetInTheMiddle {
 public:
  MeetInTheMiddle(const Shape& shape, const PieceSet& supply, Counting counting,
                  const std::optional<Branching>& branching, WorkMeter& meter, Memory& memory)
      : shape_(shape),
        plain_(plainBreaking(shape, counting)),
        scan_(shape),
        meter_(meter),
        memory_(memory),
        others_(supply),
        meetAt_(positionOf(shape, kMeetAt)) {
    memory.partials.clear();
    memory.steps.clear();
    memory.partials.reserve(std::size_t{1} << 16);
    memory.steps.reserve(std::size_t{1} << 18);
    // A branching that the first part does not always contain is of no use: the profiles do not
    // know it.
    if (!branching || lastPosition(*branching) >= positionOf(shape, kMeetAtMost)) return;
    branching_ = &*branching;
    --others_[branching->type];
    meetAt_ = std::max(meetAt_, lastPosition(*branching) + 1);
  }

  /// False when there is too much to hold, or the meter has ended the search.
  bool run() {
    profiles_.emplace(scan_.tables, scan_.layout, others_, memory_.storage);
    if (!branching_) {
      if (!searchFirstPart(scan_.layout, nullptr)) return false;
    } else {
      for (const Branch& place : branching_->places) {
        Shape rest = shape_;
        for (const Cell cell : cellsOf(place.placement)) rest.set(cell, false);
        if (!searchFirstPart(ScanShape<Bits64>(rest), &place)) return false;
      }
    }
    if (!profiles_->grow(meter_)) return false;
    profiles_->finish();
    return true;
  }

  void join(Delivery& delivery) const {
    std::vector<Step> steps;
    for (const Partial& partial : memory_.partials) {
      const Profiles::Pieces left = profiles_->all() & ~partial.used;
      if (!profiles_->canFinish(partial.profile, left)) continue;
      const auto first = memory_.steps.begin() + partial.firstStep;
      steps.assign(first, first + partial.steps);
      const auto take = [&](const std::vector<Step>& whole) {
        return delivery.take(partial.branch ? partial.branch->breaking : plain_,
                             [&] { return solutionOf(whole, partial); });
      };
      if (!profiles_->walk(partial.profile, left, steps, take)) return;
    }
  }

 private:
  bool searchFirstPart(const ScanShape<Bits64>& layout, const Branch* branch) {
    const auto keep = [&](std::span<const Step> steps, Bits64 window, int position) {
      Partial partial{profiles_->idOf(window, position), 0,
                      static_cast<std::uint32_t>(memory_.steps.size()),
                      static_cast<std::uint32_t>(steps.size()), branch};
      for (const Step& step : steps)
        partial.used |= profiles_->number(scan_.tables.type(step.orientation));
      memory_.partials.push_back(partial);
      memory_.steps.insert(memory_.steps.end(), steps.begin(), steps.end());
      return memory_.steps.size() < kMostSteps;
    };
    return scanAll(scan_.tables, layout, others_, meetAt_, meter_, keep);
  }

  Solution solutionOf(const std::vector<Step>& steps, const Partial& partial) const {
    Solution solution = scan_.solutionOf(steps);
    if (partial.branch) solution.push_back(partial.branch->placement);
    return solution;
  }

  const Shape& shape_;
  const SymmetryBreaking plain_;
  const Scan<Bits64> scan_;
  WorkMeter& meter_;
  Memory& memory_;
  PieceSet others_;
  int meetAt_;
  const Branching* branching_ = nullptr;
  std::optional<Profiles> profiles_;
};

}  // namespace

bool canMeet(const Shape& shape, const PieceSet& supply) {
  return std::ranges::max(supply.count) == 1 && supply.total() >= kFewestPieces &&
         supply.total() * PENTO::kCells == shape.area();
}

bool meetInTheMiddle(const Shape& shape, const PieceSet& supply, Counting counting,
                     const std::optional<Branching>& branching, Delivery& delivery,
                     WorkMeter& meter) {
  thread_local Memory memory;
  MeetInTheMiddle search(shape, supply, counting, branching, meter, memory);
  if (!search.run()) return !meter.work.complete;
  search.join(delivery);
  return true;
}

}  // namespace solver
