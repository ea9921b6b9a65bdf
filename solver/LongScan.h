#pragma once

#include <utility>
#include <vector>

#include "solver/Delivery.h"
#include "solver/Scan.h"
#include "solver/Threads.h"

namespace solver {

/// A scan that is shared by threads once it has run for long.
///
/// The states that wait are then dealt out to searches of their own. In each round every search
/// goes on for the same number of nodes; between two rounds the searches that are done give way to
/// halves of others. What is dealt depends on nothing but nodes, so all numbers are the same for
/// any number of threads. A scan with limits is not shared: they are to be met exactly.
template <class Bits, class Left>
class LongScan {
 public:
  /// Tables and shape outlive the scan.
  LongScan(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape, const PieceSet& supply) {
    searches_.emplace_back(tables, shape, supply);
  }

  /// Goes on for so many nodes, or some more when it is shared; Limits::kNone for all. What is
  /// found goes to foundFor(meter), a callable of its own for each meter, as in ScanSearch::run.
  /// False when there is more, or the meter or what was found has ended it.
  template <class FoundFor>
  bool run(int goal, WorkMeter& meter, std::uint64_t nodes, const FoundFor& foundFor);

  /// See ScanSearch::fractionDone.
  double fractionDone() const {
    double left = 0;
    for (const auto& search : searches_) left += 1 - search.fractionDone();
    return 1 - left;
  }

 private:
  /// Enough for all threads to end a round at about the same time; the nodes of a search in a
  /// round: some milliseconds.
  static constexpr std::size_t kSearches = 32;
  static constexpr std::uint64_t kTurn = std::uint64_t{1} << 16;

  void deal() {
    for (std::size_t i = 0; i < searches_.size() && searches_.size() < kSearches; ++i)
      if (searches_[i].waiting() > 1) searches_.push_back(searches_[i].split());
  }
  template <class FoundFor>
  bool runAlone(int goal, WorkMeter& meter, std::uint64_t nodes, const FoundFor& foundFor);
  template <class FoundFor>
  bool runRound(int goal, WorkMeter& meter, const FoundFor& foundFor);

  std::vector<ScanSearch<Bits, Left>> searches_;
};

template <class Bits, class Left>
template <class FoundFor>
bool LongScan<Bits, Left>::run(int goal, WorkMeter& meter, std::uint64_t nodes,
                               const FoundFor& foundFor) {
  if (!meter.sharing()) return runAlone(goal, meter, nodes, foundFor);
  const std::uint64_t before = meter.work.nodes, alone = meter.nodesAlone();
  if (alone > 0 && runAlone(goal, meter, std::min(alone, nodes), foundFor)) return true;
  while (!searches_.empty() && meter.work.complete && meter.work.nodes - before < nodes)
    if (!runRound(goal, meter, foundFor)) break;
  return searches_.empty();
}

template <class Bits, class Left>
template <class FoundFor>
bool LongScan<Bits, Left>::runAlone(int goal, WorkMeter& meter, std::uint64_t nodes,
                                    const FoundFor& foundFor) {
  meter.interruptAfter(nodes);
  const bool wasAll = searches_.front().run(goal, meter, foundFor(meter));
  meter.interruptAfter(Limits::kNone);
  return wasAll;
}

template <class Bits, class Left>
template <class FoundFor>
bool LongScan<Bits, Left>::runRound(int goal, WorkMeter& meter, const FoundFor& foundFor) {
  deal();
  const Limits none;
  std::vector<Work> done(searches_.size());
  inParallel(meter.sharing(), searches_.size(), [&](std::size_t i) {
    WorkMeter own(none);
    own.interruptAfter(kTurn);
    searches_[i].run(goal, own, foundFor(own));
    done[i] = own.work;
  });
  std::erase_if(searches_, [](const auto& search) { return search.waiting() == 0; });
  bool goesOn = true;
  for (const Work& some : done) goesOn = meter.add(some) && goesOn;
  return goesOn;
}

/// One whole scan, the solutions of which take(delivery, steps) hands to a delivery. One that only
/// counts may be shared; its other threads take with deliveries of their own.
template <class Bits, class Take>
bool scanAll(const Scan<Bits>& scan, const PieceSet& supply, Delivery& delivery, WorkMeter& meter,
             const Take& take) {
  const int goal = scan.layout.end();
  if (!delivery.onlyCounts())
    return scanAll(scan.tables, scan.layout, supply, goal, meter,
                   [&](std::span<const Step> steps, Bits, int) { return take(delivery, steps); });
  const auto takeFor = [&](WorkMeter& own) {
    return [&take, taker = delivery.countingOn(own)](std::span<const Step> steps, Bits,
                                                     int) mutable { return take(taker, steps); };
  };
  return withPiecesLeft(supply, [&]<class Left>() {
    LongScan<Bits, Left> search(scan.tables, scan.layout, supply);
    return search.run(goal, meter, Limits::kNone, takeFor);
  });
}

}  // namespace solver
