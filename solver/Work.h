#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>

namespace solver {

/// A number of solutions: there may be more than 64 bits can tell.
__extension__ using Count = unsigned __int128;
/// In decimal digits.
std::string decimal(Count count);

/// What a search has done. The numbers are the same in every run of the same search.
struct Work {
  Count solutions = 0;      ///< delivered or counted
  std::uint64_t nodes = 0;  ///< pieces laid that left no dead end in plain sight
  bool complete = true;     ///< false when the search ended early: there may be more solutions
  bool tooLarge = false;    ///< it ended early because counting takes more than 1 GiB or 128 bits
};

/// What bounds a search and who is told about it.
struct Limits {
  static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

  std::uint64_t nodes = kNone;                         ///< the search gives up after this number
  std::uint64_t solutions = kNone;                     ///< the search is done after this number
  std::uint64_t reportEvery = std::uint64_t{1} << 22;  ///< nodes between two reports
  std::function<void(const Work&)> progress;           ///< may be empty
  /// Threads that may share a count without limits; 1 starts none. The numbers are the same for any
  /// number of threads.
  unsigned threads = 1;
  /// Nodes before a count is shared: some tenths of a second, or two where symmetry is sifted.
  std::uint64_t alone = std::uint64_t{1} << 23;
};

/// Counts nodes against the limits; a search asks it once a node.
class WorkMeter {
 public:
  explicit WorkMeter(const Limits& limits) : limits_(limits) { setPause(); }

  /// Counts a node. False when the search is to end.
  bool node() { return ++work.nodes < pause_ || pauseHere(); }
  /// Lets node() return false after that number of further nodes without marking the search as
  /// ended; Limits::kNone for never.
  void interruptAfter(std::uint64_t nodes) {
    interruptAt_ = nodes == Limits::kNone ? nodes : work.nodes + nodes;
    setPause();
  }
  /// Counts solutions. False when these were enough.
  bool solutions(std::uint64_t count) {
    work.solutions += count;
    if (work.solutions < limits_.solutions) return true;
    return stop();
  }
  /// Counts what others did for this search. False when it is to end.
  bool add(const Work& done) {
    work.solutions += done.solutions;
    work.nodes += done.nodes;
    return work.nodes < pause_ || pauseHere();
  }
  /// The threads that may share the work; 0 when it has limits, which are to be met exactly.
  unsigned sharing() const {
    const bool limited = limits_.nodes != Limits::kNone || limits_.solutions != Limits::kNone;
    return limited ? 0 : limits_.threads;
  }
  /// The nodes until the work is to be shared.
  std::uint64_t nodesAlone() const { return limits_.alone - std::min(limits_.alone, work.nodes); }
  /// Marks the search as ended early; always false.
  bool stop() { return work.complete = false; }

  Work work;

 private:
  void setPause() {
    pause_ = std::min(limits_.nodes, interruptAt_);
    if (limits_.progress && pause_ - work.nodes > limits_.reportEvery)
      pause_ = work.nodes + limits_.reportEvery;
  }
  bool pauseHere() {
    if (work.nodes >= limits_.nodes) return stop();
    if (work.nodes >= interruptAt_) return false;
    limits_.progress(work);
    setPause();
    return true;
  }

  const Limits& limits_;
  std::uint64_t pause_ = 0, interruptAt_ = Limits::kNone;
};

}  // namespace solver
