#include "solver/Position.h"

#include <algorithm>

#include "solver/Counting.h"

namespace solver {

namespace {

bool liesOnItself(const Shape& part, Symmetry g) {
  return part.transformed(g) == part;
}

/// Every part in turn, within the limits of the whole.
class PartSearch {
 public:
  PartSearch(const Position& position, const Limits& limits, Strategy strategy, WorkMeter& meter)
      : position_(position), limits_(limits), strategy_(strategy), meter_(meter) {}

  /// Calls found for each combination of the parts' tilings; false when it or a limit ended it.
  bool list(std::size_t part, const Solution& before, const Deliver& found) {
    if (part == position_.parts.size()) return found(before);
    bool goesOn = true;
    const auto add = [&](const Solution& some) {
      Solution together = before;
      together.insert(together.end(), some.begin(), some.end());
      return goesOn = list(part + 1, together, found);
    };
    return search(position_.parts[part], add).complete && goesOn;
  }

  /// The product of the parts' numbers.
  Count count() {
    Count all = 1;
    for (const Problem& part : position_.parts) {
      if (all == 0) break;
      all = product(all, search(part, {}).solutions, meter_);
    }
    return all;
  }

 private:
  Work search(const Problem& part, const Deliver& deliver) {
    Limits rest = limits_;
    if (rest.nodes != Limits::kNone) rest.nodes -= meter_.work.nodes;
    rest.solutions = Limits::kNone;
    const Work work = forEachSolution(part, Counting::All, deliver, rest, strategy_);
    meter_.work.nodes += work.nodes;
    meter_.work.tooLarge = meter_.work.tooLarge || work.tooLarge;
    if (!work.complete) meter_.stop();
    return work;
  }

  const Position& position_;
  const Limits& limits_;
  const Strategy strategy_;
  WorkMeter& meter_;
};

}  // namespace

Position::Position(const Problem& problem) : frame(Frame::fewCellsAColumn(problem.shape)) {
  const Shape& whole = frame.shape();
  Problem rest{whole, problem.supply};
  for (int type = 0; type < PENTO::kTypes; ++type) {
    Problem part{Shape(whole.width(), whole.height()), PieceSet::ofEach(0)};
    for (const auto& [cell, drawn] : problem.kept) {
      if (drawn != type) continue;
      part.shape.set(frame.apply(cell));
      rest.shape.set(frame.apply(cell), false);
    }
    const int pieces = (part.shape.area() + PENTO::kCells - 1) / PENTO::kCells;
    if (pieces == 0) continue;
    part.supply[type] = rest.supply[type];
    rest.supply[type] = std::max(0, rest.supply[type] - pieces);
    parts.push_back(part);
  }
  parts.push_back(rest);
  std::ranges::copy_if(symmetriesOf(whole), std::back_inserter(symmetries), [&](Symmetry g) {
    return std::ranges::all_of(parts,
                               [&](const Problem& part) { return liesOnItself(part.shape, g); });
  });
}

Work forEachFromPosition(const Problem& problem, Counting counting, const Deliver& deliver,
                         const Limits& limits, Strategy strategy) {
  WorkMeter meter(limits);
  const Position position(problem);
  PartSearch search(position, limits, strategy, meter);
  const bool all = counting == Counting::All || position.symmetries.size() == 1;
  if (!deliver && limits.solutions == Limits::kNone) {
    const Count number = search.count();
    const auto orbits =
        all ? number : countOrbits(number, position.parts, position.symmetries, meter);
    if (orbits) meter.work.solutions = *orbits;
    if (orbits) return meter.work;
  }
  Delivery delivery(position.frame, deliver, meter);
  const SymmetryBreaking breaking{all ? std::vector<Symmetry>{} : position.symmetries, {{}}};
  search.list(0, {}, [&](const Solution& solution) {
    return delivery.take(breaking, [&] { return solution; });
  });
  return meter.work;
}

Answer findFromPosition(const Problem& problem, const Limits& limits, const TypeOrder& order) {
  const Position position(problem);
  Answer whole{Solution{}, {}};
  for (const Problem& part : position.parts) {
    Limits rest = limits;
    rest.nodes -= whole.work.nodes;
    const Answer some = findSolution(part, rest, order);
    whole.work.nodes += some.work.nodes;
    whole.work.complete = some.work.complete;
    if (!some.solution) return {std::nullopt, whole.work};
    whole.solution->insert(whole.solution->end(), some.solution->begin(), some.solution->end());
  }
  whole.work.solutions = 1;
  position.frame.restore(*whole.solution);
  return whole;
}

}  // namespace solver
