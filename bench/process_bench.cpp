// Start, memory and processor use of the whole program, beside a bare window, on an X server.
// Usage: quinzolith-bench-process BARE_WINDOW GAME
#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "bench/PlayWindow.h"
#include "bench/Running.h"
#include "bench/Server.h"
#include "bench/Table.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kStarts = 11;
constexpr Seconds kWatched{10};
constexpr Seconds kAnswer{0.1};  // in which the game has seen to a press

struct Start {
  double milliseconds, megabytes;
};

Start startOnce(Server& server, const char* program, const std::string& title) {
  const auto begin = Clock::now();
  Running running(program);
  waitFor(server, title);
  const double taken = Seconds(Clock::now() - begin).count() * 1e3;
  std::this_thread::sleep_for(std::chrono::milliseconds(300));  // all of it has been painted
  return {taken, running.megabytes()};
}

/// A busy machine only ever adds to a start, so the fastest is the one to compare.
Start fastest(const std::vector<Start>& starts) {
  return *std::min_element(starts.begin(), starts.end(), [](const Start& a, const Start& b) {
    return a.milliseconds < b.milliseconds;
  });
}

std::string mebibytes(double value) {
  return Table::number(value, "MiB");
}

void memoryRow(const std::string& when, const Running& game, double bareMegabytes, double aim) {
  const double megabytes = game.megabytes();
  Table::row("resident memory " + when, mebibytes(megabytes), mebibytes(bareMegabytes),
             megabytes / bareMegabytes, Table::atMost(aim));
}

void shareRow(const std::string& what, double percent, const Table::Aim& aim) {
  Table::row(what + ": % of a core", Table::number(percent, "%"), "", percent, aim);
}

void compareStarts(Server& server, const char* bare, const char* game, double& bareMegabytes) {
  std::vector<Start> bares, games;
  for (int i = 0; i < kStarts; ++i) {
    bares.push_back(startOnce(server, bare, "Bare window"));
    waitFor(server, "Bare window", false);
    games.push_back(startOnce(server, game, "Quinzolith"));
    waitFor(server, "Quinzolith", false);
  }
  const Start b = fastest(bares), g = fastest(games);
  bareMegabytes = b.megabytes;
  Table::row("start to first visible window, beside an empty one",
             Table::number(g.milliseconds, "ms"), Table::number(b.milliseconds, "ms"),
             g.milliseconds / b.milliseconds, Table::atMost(1.5));
  Table::row("resident memory at the splash window", mebibytes(g.megabytes), mebibytes(b.megabytes),
             g.megabytes / b.megabytes, Table::atMost(2));
}

template <class During>
double percentOfACore(const Running& game, During during) {
  const double before = game.processorTime();
  const auto begin = Clock::now();
  while (Clock::now() - begin < kWatched) during();
  return 100 * (game.processorTime() - before) / Seconds(Clock::now() - begin).count();
}

/// Presses down the tray until the game moves the pointer: to the middle of the piece it picked up.
bool pickUp(Server& server) {
  const int x = server.width() / 10;
  for (int y = 60; y < server.height(); y += 9) {
    server.move(x, y);
    std::this_thread::sleep_for(kAnswer);
    server.click();
    std::this_thread::sleep_for(kAnswer);
    if (server.pointer() != std::pair(x, y)) return true;
  }
  return false;
}

double carrying(Server& server, const Running& game) {
  int step = 0;
  return percentOfACore(game, [&] {
    const double turn = ++step / 40.0;
    server.move(static_cast<int>(server.width() * (0.6 + 0.15 * std::cos(turn))),
                static_cast<int>(server.height() * (0.5 + 0.2 * std::sin(turn))));
    std::this_thread::sleep_for(std::chrono::milliseconds(8));
  });
}

void watchPlaying(Server& server, const char* program, double bareMegabytes) {
  Running game(program);
  openPlayWindow(server);
  memoryRow("in play, before a tune", game, bareMegabytes, 2);
  const auto rest = [] { std::this_thread::sleep_for(std::chrono::milliseconds(50)); };
  shareRow("play window open, mouse still", percentOfACore(game, rest), Table::below(0.5));
  if (!pickUp(server)) {
    std::puts("No piece could be picked up!");
    return;
  }
  shareRow("a piece in the air, mouse moving at 125 Hz", carrying(server, game), Table::atMost(5));

  server.move(server.width() * 6 / 10, server.height() * 9 / 10);
  std::this_thread::sleep_for(kAnswer);
  server.click();  // upon the board's edge, which refuses the piece: the wrong tune plays
  std::this_thread::sleep_for(kSettled);
  memoryRow("in play, after the first tune", game, bareMegabytes, 2.5);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("Usage: quinzolith-bench-process BARE_WINDOW GAME\n", stderr);
    return 2;
  }
  XSetErrorHandler(ignoreErrors);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  Server server;
  double bareMegabytes = 1;
  compareStarts(server, argv[1], argv[2], bareMegabytes);
  watchPlaying(server, argv[2], bareMegabytes);
  return 0;
}
