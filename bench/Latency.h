#pragma once

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "bench/Server.h"

inline constexpr int kMoves = 10'000;

/// From a motion to other pixels in the server's image, asked for as fast as it answers; sorted
/// milliseconds. A move that changes nothing within a second counts as one.
inline std::vector<double> latencies(Server& server) {
  constexpr int kHigh = 4;
  const int wide = server.width() * 3 / 8;  // of the middle: both sides of what is carried
  std::vector<double> taken;
  for (int i = 0; i < kMoves; ++i) {
    std::this_thread::sleep_for(std::chrono::microseconds(3000 + i % 7 * 400));
    const std::string before = server.middle(wide, kHigh);
    const auto begin = std::chrono::steady_clock::now();
    server.move(server.width() / 2 + (i % 2 == 0 ? 12 : -12), server.height() / 2);
    while (server.middle(wide, kHigh) == before &&
           std::chrono::steady_clock::now() - begin < std::chrono::seconds(1)) {
    }
    taken.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
            .count());
  }
  std::ranges::sort(taken);
  return taken;
}
