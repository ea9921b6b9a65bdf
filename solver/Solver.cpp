#include "solver/Solver.h"

#include <stdexcept>

#include "solver/Roads.h"
#include "solver/Scan.h"

namespace Solver {

namespace {

/// Nodes of the first scan from the first corner; the budget doubles once all corners had theirs.
constexpr std::uint64_t kFirstBudget = 2000;

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
void scan(const Problem& problem, const Frame& frame, const Harvest& harvest, Delivery& delivery,
          WorkMeter& meter, const TypeOrder& order = kAwkwardFirst) {
  const Scan<Bits> scan(frame.shape(), order);
  ScanSearch<Bits> search(scan.tables, scan.layout, problem.supply, meter);
  search.run(scan.layout.end(), [&](std::span<const Step> steps, Bits, int) {
    return delivery.take(harvest, [&] { return scan.solutionOf(steps); });
  });
}

/// Takes one of the roads that need more than a scan. False when none is wanted or serves.
bool takeFastRoad(const Problem& problem, Counting counting, const Frame& frame, Delivery& delivery,
                  WorkMeter& meter, Road road) {
  const Shape& shape = frame.shape();
  if (road == Road::Scan || shape.height() > kTallestColumn<Bits64>) return false;
  const std::optional<Pin> pin = choosePin(shape, problem.supply, counting);
  // With all eight symmetries the pin leaves so little that profiles cost more.
  const bool pinSuffices = road == Road::Best && pin && symmetriesOf(shape).size() == 8;
  if (road != Road::Pinned && !pinSuffices && Roads::canMeet(shape, problem.supply) &&
      Roads::meeting(shape, problem.supply, counting, pin, delivery, meter))
    return true;
  if (!pin) return false;
  Roads::pinned(shape, problem.supply, *pin, delivery, meter);
  return true;
}

/// The frames with short columns; on a square box there are eight.
std::vector<Frame> cornersOf(const Shape& shape) {
  std::vector<Frame> frames;
  for (const Symmetry symmetry : kSymmetries) {
    const Frame frame(shape, symmetry);
    if (frame.shape().height() <= frame.shape().width()) frames.push_back(frame);
  }
  return frames;
}

}  // namespace

Work forEachSolution(const Problem& problem, Counting counting, const Deliver& deliver,
                     const Limits& limits, Road road) {
  WorkMeter meter(limits);
  const Frame frame = Frame::shortColumns(problem.shape);
  Delivery delivery(frame, deliver, meter);
  const Harvest harvest = plainHarvest(frame.shape(), counting);
  if (const auto answer = obvious(problem)) {
    if (*answer) delivery.take(harvest, [] { return Solution{}; });
    return meter.work;
  }
  if (!takeFastRoad(problem, counting, frame, delivery, meter, road))
    withWindow(frame, [&]<class Bits>() { scan<Bits>(problem, frame, harvest, delivery, meter); });
  return meter.work;
}

Answer findSolution(const Problem& problem, const Limits& limits, const TypeOrder& order) {
  Answer answer;
  if (const auto known = obvious(problem)) {
    if (*known) answer = {Solution{}, {1, 0, true}};
    return answer;
  }
  const Deliver keep = [&](const Solution& solution) {
    answer.solution = solution;
    return false;
  };
  const std::vector<Frame> frames = cornersOf(problem.shape);
  for (std::uint64_t budget = kFirstBudget;; budget *= 2)
    for (const Frame& frame : frames) {
      Limits attempt = limits;
      attempt.nodes = std::min(budget, limits.nodes - answer.work.nodes);
      if (limits.progress)
        attempt.progress = [&](const Work& work) {
          limits.progress({0, answer.work.nodes + work.nodes, false});
        };
      WorkMeter meter(attempt);
      Delivery delivery(frame, keep, meter);
      const Harvest harvest{{}, {Symmetry{}}};
      withWindow(frame, [&]<class Bits>() {
        scan<Bits>(problem, frame, harvest, delivery, meter, order);
      });
      answer.work.nodes += meter.work.nodes;
      answer.work.solutions = meter.work.solutions;
      answer.work.complete = answer.solution.has_value() || meter.work.complete;
      if (answer.work.complete || answer.work.nodes >= limits.nodes) return answer;
    }
}

}  // namespace Solver
