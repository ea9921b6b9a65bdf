#pragma once

#include <algorithm>
#include <chrono>

/// Times of short work beside other work: the best of many short rounds, since a noisy machine only
/// ever adds, and the two in turn, so that a noisy minute hits both.
namespace Stopwatch {

constexpr int kRounds = 60;

/// Nanoseconds of one call, on average over `calls`.
template <class Work>
double once(int calls, Work& work) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < calls; ++i) work(i);
  const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / calls;
}

/// Nanoseconds of one call each.
struct Times {
  double ours = 1e300, other = 1e300;
};

/// Each work is called a number of times in each round, with the number of the call.
template <class Ours, class Other>
Times compare(int calls, Ours ours, int otherCalls, Other other) {
  Times best;
  for (int round = 0; round < kRounds; ++round) {
    best.ours = std::min(best.ours, once(calls, ours));
    best.other = std::min(best.other, once(otherCalls, other));
  }
  return best;
}

}  // namespace Stopwatch
