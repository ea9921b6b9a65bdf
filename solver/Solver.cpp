#include "solver/Solver.h"

#include <stdexcept>

#include "solver/CornerRace.h"
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
  scanAll(scan.tables, scan.layout, problem.supply, scan.layout.end(), meter,
          [&](std::span<const Step> steps, Bits, int) {
            return delivery.take(breaking, [&] { return scan.solutionOf(steps); });
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
      strategy == Strategy::Best && branching && symmetriesOf(shape).size() == 8;
  if (strategy != Strategy::Branch && !branchingSuffices && canMeet(shape, problem.supply) &&
      meetInTheMiddle(shape, problem.supply, counting, branching, delivery, meter))
    return true;
  if (!branching) return false;
  branchAndScan(shape, problem.supply, *branching, delivery, meter);
  return true;
}

}  // namespace

Work forEachSolution(const Problem& problem, Counting counting, const Deliver& deliver,
                     const Limits& limits, Strategy strategy) {
  WorkMeter meter(limits);
  const Frame frame = Frame::shortColumns(problem.shape);
  Delivery delivery(frame, deliver, meter);
  const SymmetryBreaking breaking = plainBreaking(frame.shape(), counting);
  if (const auto answer = obvious(problem)) {
    if (*answer) delivery.take(breaking, [] { return Solution{}; });
    return meter.work;
  }
  if (!takeFastStrategy(problem, counting, frame, delivery, meter, strategy))
    withWindow(frame, [&]<class Bits>() { scan<Bits>(problem, frame, breaking, delivery, meter); });
  return meter.work;
}

Answer findSolution(const Problem& problem, const Limits& limits, const TypeOrder& order) {
  Answer answer;
  if (const auto known = obvious(problem)) {
    if (*known) answer = {Solution{}, {1, 0, true}};
    return answer;
  }
  withWindow(Frame::shortColumns(problem.shape), [&]<class Bits>() {
    withPiecesLeft(problem.supply, [&]<class Left>() {
      answer = CornerRace<Bits, Left>(problem, order).run(limits);
    });
  });
  return answer;
}

}  // namespace solver
