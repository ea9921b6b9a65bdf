#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

/// Times of short work: the best of many rounds, since a noisy machine only ever adds.
namespace Stopwatch {

constexpr int kRounds = 15;

/// Nanoseconds of one call: the work is called `calls` times a round, and the best round counts.
template <class Work>
double best(int calls, Work work) {
  double fewest = 1e300;
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) work(i);
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    fewest = std::min(fewest, taken.count() / calls);
  }
  return fewest;
}

inline void title() {
  std::printf("%-52s %12s %12s %9s  %s\n", "work", "ours (us)", "other (us)", "ratio", "aim");
}

/// One line of a table: our time, another's, and their ratio.
inline void row(const std::string& work, double ours, double other, double ratio,
                const std::string& aim) {
  std::printf("%-52s %12.2f %12.2f %9.2f  %s\n", work.c_str(), ours / 1e3, other / 1e3, ratio,
              aim.c_str());
}

}  // namespace Stopwatch
