#pragma once

#include <deque>

#include "solver/Scan.h"
#include "solver/Solver.h"

namespace solver {

/// The first solution, sought from all corners of the shape in turn: one scan may be hopeless where
/// another is lucky. The scans are interrupted and go on where they stopped; every second turn is
/// given to the one that seems nearest to its end, the others go round.
template <class Bits, class Left>
class CornerRace {
 public:
  /// The problem outlives the race.
  CornerRace(const Problem& problem, const TypeOrder& order)
      : problem_(problem), tables_(WindowTables<Bits>::of(order)) {}

  /// Limits count what all calls did; after one that reached its nodes the next goes on from there.
  const Answer& run(const Limits& limits) {
    while (!runTurn(nextRunner(), limits)) continue;
    return answer_;
  }

 private:
  static constexpr std::uint64_t kTurn = 2000;  ///< nodes

  struct Runner {
    Runner(const Frame& from, const std::shared_ptr<const WindowTables<Bits>>& tables,
           const PieceSet& supply)
        : frame(from), scan(from.shape(), tables), search(scan.tables, scan.layout, supply) {}

    Frame frame;
    Scan<Bits> scan;
    ScanSearch<Bits, Left> search;
    std::uint64_t nodes = 0;
    double nodesToCome = 0;  ///< a guess
  };

  /// A corner is made ready when its turn comes: most shapes are solved from the first one.
  Runner& nextRunner() {
    while (made_ < kSymmetries.size()) {
      const Frame frame(problem_.shape, kSymmetries[made_++]);
      if (frame.shape().height() > frame.shape().width()) continue;
      return runners_.emplace_back(frame, tables_, problem_.supply);
    }
    const std::size_t turn = turn_++;
    return turn % 2 == 0 ? nearest() : runners_[turn / 2 % runners_.size()];
  }

  Runner& nearest() { return *std::ranges::min_element(runners_, {}, &Runner::nodesToCome); }

  /// True when the answer is final.
  bool runTurn(Runner& runner, const Limits& limits) {
    Limits turn;
    turn.nodes = std::min(kTurn, limits.nodes - answer_.work.nodes);
    WorkMeter meter(turn);
    const bool wasAll = runner.search.run(runner.scan.layout.end(), meter,
                                          [&](std::span<const Step> steps, Bits, int) {
                                            answer_.solution = runner.scan.solutionOf(steps);
                                            runner.frame.restore(*answer_.solution);
                                            return false;
                                          });
    report(limits, meter.work.nodes);
    answer_.work.solutions = answer_.solution.has_value();
    answer_.work.complete = wasAll || answer_.solution.has_value();
    runner.nodes += meter.work.nodes;
    const double done = runner.search.fractionDone();
    runner.nodesToCome = static_cast<double>(runner.nodes) * (1 - done) / std::max(done, 1e-12);
    return answer_.work.complete || answer_.work.nodes >= limits.nodes;
  }

  void report(const Limits& limits, std::uint64_t nodes) {
    const std::uint64_t before = answer_.work.nodes / limits.reportEvery;
    answer_.work.nodes += nodes;
    if (limits.progress && answer_.work.nodes / limits.reportEvery != before)
      limits.progress({0, answer_.work.nodes, false});
  }

  const Problem& problem_;
  const std::shared_ptr<const WindowTables<Bits>> tables_;
  std::deque<Runner> runners_;       // they stay where they are: searches refer to their scans
  std::size_t made_ = 0, turn_ = 0;  ///< corners looked at; turns after all were made ready
  Answer answer_;
};

}  // namespace solver
