#include "solver/Counting.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "solver/FitChunks.h"
#include "solver/LongScan.h"
#include "solver/Strategies.h"

namespace solver {

namespace {

/// A scan that is done within this number of nodes is not to be beaten; otherwise profiles are
/// tried then, and after each multiple of it: what is left is known better by and by.
constexpr std::uint64_t kTrialNodes = 1 << 14, kTrialGrowth = 256;
/// What a node over profiles costs, in nodes of a scan; how many times more nodes a scan takes than
/// it seems at its beginning, and the share of it after which it is seen rightly: all by
/// experience.
constexpr double kProfileCost = 2.8, kUnseen = 1.7, kSeen = 0.25;

bool isCounted(const PieceSet& supply, int pieces) {
  return SupplyCode(supply, pieces).bits() > 0;
}

/// Scans until the end, with looks aside whether counting over profiles will be done earlier.
template <class Left>
class CountByTrial {
 public:
  CountByTrial(const Problem& problem, WorkMeter& meter)
      : problem_(problem),
        meter_(meter),
        frame_(Frame::fewCellsAColumn(problem.shape)),
        scan_(frame_.shape()),
        search_(scan_.tables, scan_.layout, problem.supply) {}

  Count run() {
    for (std::uint64_t trial = kTrialNodes;; trial *= kTrialGrowth) {
      if (scanFor(trial) || !meter_.work.complete) return found_;
      const auto all =
          countOverProfiles(frame_.shape(), problem_.supply, Symmetry{}, meter_, nodesThatPay());
      if (all) return std::max(*all, found_);
    }
  }

 private:
  /// True when it is done.
  bool scanFor(std::uint64_t nodes) {
    const Count before = meter_.work.solutions;
    const std::uint64_t nodesBefore = meter_.work.nodes;
    const bool wasAll = search_.run(scan_.layout.end(), meter_, nodes, [](WorkMeter& meter) {
      return [&meter](auto&&...) { return meter.solutions(1); };
    });
    nodes_ += static_cast<double>(meter_.work.nodes - nodesBefore);
    found_ += std::exchange(meter_.work.solutions, before) - before;
    return wasAll;
  }

  std::uint64_t nodesThatPay() const {
    const double done = std::max(search_.fractionDone(), 1e-12);
    const double unseen = std::lerp(kUnseen, 1.0, std::min(1.0, done / kSeen));
    return static_cast<std::uint64_t>(
        std::min(nodes_ * (1 - done) / done * unseen / kProfileCost, 1e18));
  }

  const Problem& problem_;
  WorkMeter& meter_;
  const Frame frame_;
  const Scan<Bits64> scan_;
  LongScan<Bits64, Left> search_;
  Count found_ = 0;
  double nodes_ = 0;
};

}  // namespace

std::optional<Count> countTilings(const Problem& problem, WorkMeter& meter, Strategy strategy) {
  const int pieces = problem.shape.area() / PENTO::kCells;
  const Frame frame = Frame::fewCellsAColumn(problem.shape);
  if (strategy == Strategy::Profiles || !isCounted(problem.supply, pieces))
    return countOverProfiles(frame.shape(), problem.supply, Symmetry{}, meter, Limits::kNone);
  if (canMeet(frame.shape(), problem.supply) || frame.shape().height() > kTallestColumn<Bits64>)
    return std::nullopt;
  return withPiecesLeft(problem.supply, [&]<class Left>() {
    return std::optional(CountByTrial<Left>(problem, meter).run());
  });
}

std::optional<Count> countOrbits(Count all, const std::vector<Problem>& parts,
                                 const std::vector<Symmetry>& symmetries, WorkMeter& meter) {
  Count sum = all;
  for (const Symmetry g : symmetries) {
    if (g == Symmetry{}) continue;
    Count fixed = 1;
    for (const Problem& part : parts) {
      const auto some = countOverProfiles(part.shape, part.supply, g, meter, Limits::kNone);
      if (!some) return std::nullopt;
      fixed = product(fixed, *some, meter);
    }
    if (__builtin_add_overflow(sum, fixed, &sum)) return std::nullopt;
  }
  // Too small a sum still makes a lower bound.
  const Count order = symmetries.size();
  return sum / order + (sum % order != 0 ? 1 : 0);
}

Count product(Count a, Count b, WorkMeter& meter) {
  Count result = 0;
  if (!__builtin_mul_overflow(a, b, &result)) return result;
  meter.work.tooLarge = true;
  meter.stop();
  return std::numeric_limits<Count>::max();
}

}  // namespace solver
