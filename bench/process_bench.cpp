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

#include "bench/Latency.h"
#include "bench/PlayWindow.h"
#include "bench/Running.h"
#include "bench/Server.h"
#include "bench/Table.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 5;  // each gives a ratio
constexpr int kStarts = 5;  // of each program, in a round
constexpr Seconds kWatched{5};
constexpr Seconds kPainted{0.3};  // after which all of a window has been painted
constexpr Seconds kAnswer{0.1};   // in which the game has seen to a press
constexpr const char* kGame = "Quinzolith";
constexpr const char* kBare = "Bare window";

/// Milliseconds until the first window shows its first picture.
double startOnce(Server& server, const char* program, const char* argument, const char* title) {
  const auto begin = Clock::now();
  double taken = 0;
  {
    const Running running(program, argument);
    waitForPaint(server, title);
    taken = Seconds(Clock::now() - begin).count() * 1e3;
    std::this_thread::sleep_for(kPainted);
  }
  waitFor(server, title, false);
  return taken;
}

double megabytesAtRest(Server& server, const char* program, const char* argument,
                       const char* title) {
  const Running running(program, argument);
  waitFor(server, title);
  std::this_thread::sleep_for(kSettled);
  return running.megabytes();
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

/// A busy machine only ever adds to a start, so of each round the fastest are compared.
void compareStarts(Server& server, const char* bare, const char* game) {
  Table::Spread ratios;
  double ours = 0, beside = 0;
  for (int round = 0; round < kRounds; ++round) {
    ours = beside = HUGE_VAL;
    for (int i = 0; i < kStarts; ++i) {
      beside = std::min(beside, startOnce(server, bare, "line", kBare));
      ours = std::min(ours, startOnce(server, game, nullptr, kGame));
    }
    ratios.add(ours / beside);
  }
  Table::row("start to first paint, line of text" + ratios.text(), Table::number(ours, "ms"),
             Table::number(beside, "ms"), ratios.middle(), Table::atMost(1.3));
}

template <class During>
double percentOfACore(const Running& program, During during) {
  const double before = program.processorTime();
  const auto begin = Clock::now();
  while (Clock::now() - begin < kWatched) during();
  return 100 * (program.processorTime() - before) / Seconds(Clock::now() - begin).count();
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

double carrying(Server& server, const Running& program) {
  int step = 0;
  return percentOfACore(program, [&] {
    const double turn = ++step / 40.0;
    server.move(static_cast<int>(server.width() * (0.6 + 0.15 * std::cos(turn))),
                static_cast<int>(server.height() * (0.5 + 0.2 * std::sin(turn))));
    std::this_thread::sleep_for(std::chrono::milliseconds(8));
  });
}

/// The bare window lies over the game's meanwhile, which stands still.
template <class Measure>
auto besideBare(Server& server, const char* bare, const std::string& size, const Running& game,
                Measure measure) {
  game.pause();
  auto measured = [&] {
    const Running square(bare, size.c_str());
    waitFor(server, kBare);
    std::this_thread::sleep_for(kSettled);
    return measure(square);
  }();
  waitFor(server, kBare, false);
  game.goOn();
  std::this_thread::sleep_for(kSettled);
  return measured;
}

/// Of the piece in the air, as the bare window takes it: "90x60".
std::string sizeOfPiece(Server& server) {
  const int x = server.width() / 2, y = server.height() / 2;
  const auto [width, height] =
      server.sizeOfChange({x * 3 / 4, y}, {x * 5 / 4, y}, x, std::chrono::seconds(1));
  return std::to_string(width) + "x" + std::to_string(height);
}

void compareCarrying(Server& server, const char* bare, const std::string& size,
                     const Running& game) {
  Table::Spread ratios;
  double ours = 0, beside = 0;
  for (int round = 0; round < kRounds; ++round) {
    beside = besideBare(server, bare, size, game,
                        [&](const Running& square) { return carrying(server, square); });
    ours = carrying(server, game);
    ratios.add(ours / beside);
  }
  Table::row("a piece of " + size + " in the air, 125 moves a second" + ratios.text(),
             Table::number(ours, "%"), Table::number(beside, "%"), ratios.middle(),
             Table::atMost(1));
}

void compareLatency(Server& server, const char* bare, const std::string& size,
                    const Running& game) {
  const auto beside =
      besideBare(server, bare, size, game, [&](const Running&) { return latencies(server); });
  const auto ours = latencies(server);
  const auto line = [&](const char* what, std::size_t rank, double figure, double aim) {
    Table::row(std::string("from a motion to its picture, ") + what,
               Table::number(ours[rank], "ms"), Table::number(beside[rank], "ms"), figure,
               Table::atMost(aim));
  };
  line("median: ms more", kMoves / 2, ours[kMoves / 2] - beside[kMoves / 2], 1);
  line("99th of 100: ms", kMoves / 100 * 99, ours[kMoves / 100 * 99], 8);
}

void watchPlaying(Server& server, const char* bare, const char* program, double bareMegabytes) {
  Running game(program);
  openPlayWindow(server);
  memoryRow("in play, before a tune", game, bareMegabytes, 1.7);
  const auto rest = [] { std::this_thread::sleep_for(std::chrono::milliseconds(50)); };
  shareRow("play window open, mouse still", percentOfACore(game, rest), Table::below(0.5));
  if (!pickUp(server)) {
    std::puts("No piece could be picked up!");
    return;
  }
  const std::string size = sizeOfPiece(server);
  compareCarrying(server, bare, size, game);
  compareLatency(server, bare, size, game);

  server.move(server.width() * 6 / 10, server.height() * 9 / 10);
  std::this_thread::sleep_for(kAnswer);
  server.click();  // upon the board's edge, which refuses the piece: the wrong tune plays
  std::this_thread::sleep_for(kSettled);
  memoryRow("in play, after the first tune", game, bareMegabytes, 2.3);
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
  compareStarts(server, argv[1], argv[2]);
  const double bareMegabytes = megabytesAtRest(server, argv[1], nullptr, kBare);
  const double splashMegabytes = megabytesAtRest(server, argv[2], nullptr, kGame);
  Table::row("resident memory at the splash window", mebibytes(splashMegabytes),
             mebibytes(bareMegabytes), splashMegabytes / bareMegabytes, Table::atMost(2));
  waitFor(server, kGame, false);
  watchPlaying(server, argv[1], argv[2], bareMegabytes);
  return 0;
}
