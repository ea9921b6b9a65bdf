#include "solver/Solver.h"

#include <stdexcept>

#include "solver/CornerRace.h"
#include "solver/Counting.h"
#include "solver/LongScan.h"
#include "solver/Position.h"
#include "solver/Strategies.h"

namespace solver {

namespace {

/// What needs no search: nothing to cover, or pieces that cannot match the area.
std::optional<bool> obvious(const Problem& problem) {
  const int area = problem.shape.area();
  if (area == 0) return true;
  if (area % PENTO::kCells != 0 || area / PENTO::kCells > problem.supply.total()) return false;
  return std::nullopt;
}

/// Calls search<Bits>() with the narrowest window that serves the frame.
template <class Search>
void withWindow(const Frame& frame, Search&& search) {
  const int height = frame.shape().height();
  if (height <= kTallestColumn<Bits64>)
    search.template operator()<Bits64>();
  else if (height <= kTallestColumn<Bits128>)
    search.template operator()<Bits128>();
  else
    throw std::invalid_argument("The shape is too large: one side may have at most 30 cells.");
}

template <class Bits>
void scan(const Problem& problem, const Frame& frame, const SymmetryBreaking& breaking,
          Delivery& delivery, WorkMeter& meter) {
  const Scan<Bits> scan(frame.shape());
  scanAll(scan, problem.supply, delivery, meter, [&](Delivery& taker, std::span<const Step> steps) {
    return taker.take(breaking, [&] { return scan.solutionOf(steps); });
  });
}

/// Takes one of the strategies that need more than a scan. False when none is wanted or serves.
bool takeFastStrategy(const Problem& problem, Counting counting, const Frame& frame,
                      Delivery& delivery, WorkMeter& meter, Strategy strategy) {
  const Shape& shape = frame.shape();
  if (strategy == Strategy::Scan || shape.height() > kTallestColumn<Bits64>) return false;
  const std::optional<Branching> branching = chooseBranching(shape, problem.supply, counting);
  // With all eight symmetries the branching leaves so little that profiles cost more.
  const bool branchingSuffices =
      strategy != Strategy::Meet && branching && symmetriesOf(shape).size() == 8;
  if (strategy != Strategy::Branch && !branchingSuffices && canMeet(shape, problem.supply) &&
      meetInTheMiddle(shape, problem.supply, counting, branching, delivery, meter))
    return true;
  if (!branching) return false;
  branchAndScan(shape, problem.supply, *branching, delivery, meter);
  return true;
}

/// Counts without listing. False when that does not serve.
bool countOnly(const Problem& problem, Counting counting, WorkMeter& meter, Strategy strategy) {
  const auto all = countTilings(problem, meter, strategy);
  if (!all) return false;
  const std::vector<Symmetry> symmetries = symmetriesOf(problem.shape);
  const auto wanted = counting == Counting::All || symmetries.size() == 1
                          ? all
                          : countOrbits(*all, {problem}, symmetries, meter);
  if (wanted) meter.work.solutions = *wanted;
  return wanted.has_value();
}

}  // namespace

Work forEachSolution(const Problem& problem, Counting counting, const Deliver& deliver,
                     const Limits& limits, Strategy strategy) {
  if (!problem.kept.empty())
    return forEachFromPosition(problem, counting, deliver, limits, strategy);
  WorkMeter meter(limits);
  const Frame frame = Frame::fewCellsAColumn(problem.shape);
  Delivery delivery(frame, deliver, meter);
  const SymmetryBreaking breaking = plainBreaking(frame.shape(), counting);
  if (const auto answer = obvious(problem)) {
    if (*answer) delivery.take(breaking, [] { return Solution{}; });
    return meter.work;
  }
  const bool counts = strategy == Strategy::Best || strategy == Strategy::Profiles;
  if (counts && !deliver && limits.solutions == Limits::kNone &&
      countOnly({frame.shape(), problem.supply}, counting, meter, strategy))
    return meter.work;
  if (!takeFastStrategy(problem, counting, frame, delivery, meter, strategy))
    withWindow(frame, [&]<class Bits>() { scan<Bits>(problem, frame, breaking, delivery, meter); });
  return meter.work;
}

class SlicedSearch::Race {
 public:
  virtual ~Race() = default;
  virtual const Answer& run(const Limits& limits) = 0;
};

template <class Bits, class Left>
class SlicedSearch::RaceOf : public Race {
 public:
  RaceOf(const Problem& problem, const TypeOrder& order) : race_(problem, order) {}
  const Answer& run(const Limits& limits) override { return race_.run(limits); }

 private:
  CornerRace<Bits, Left> race_;
};

SlicedSearch::SlicedSearch(Problem problem) : problem_(std::move(problem)) {
  if (const auto known = obvious(problem_)) {
    if (*known) answer_ = {Solution{}, {1, 0}};
    return;
  }
  withWindow(Frame::fewCellsAColumn(problem_.shape), [&]<class Bits>() {
    withPiecesLeft(problem_.supply, [&]<class Left>() {
      race_ = std::make_unique<RaceOf<Bits, Left>>(problem_, kAwkwardFirst);
    });
  });
}

SlicedSearch::~SlicedSearch() = default;

bool SlicedSearch::goOn(std::uint64_t nodes) {
  if (!race_) return true;
  Limits limits;
  limits.nodes = answer_.work.nodes + nodes;
  answer_ = race_->run(limits);
  return answer_.work.complete;
}

Answer findSolution(const Problem& problem, const Limits& limits, const TypeOrder& order) {
  if (!problem.kept.empty()) return findFromPosition(problem, limits, order);
  Answer answer;
  if (const auto known = obvious(problem)) {
    if (*known) answer = {Solution{}, {1, 0}};
    return answer;
  }
  withWindow(Frame::fewCellsAColumn(problem.shape), [&]<class Bits>() {
    withPiecesLeft(problem.supply, [&]<class Left>() {
      answer = CornerRace<Bits, Left>(problem, order).run(limits);
    });
  });
  return answer;
}

}  // namespace solver
