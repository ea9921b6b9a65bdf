// How long the chooser takes to show many puzzles of the player's own, and how much memory, on an X
// server. Usage: quinzolith-bench-chooser GAME: a game installed in a place of its own, which is
// filled.
#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>

#include "bench/PlayWindow.h"
#include "bench/Running.h"
#include "bench/Server.h"
#include "bench/Table.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 5;
constexpr int kListWidth = 300, kListHeight = 200;  // pixels of the chooser that are compared

void fill(const fs::path& user, const fs::path& puzzle, int count) {
  fs::create_directory(user);
  for (int i = 1; i <= count; ++i)
    fs::copy_file(puzzle, user / ("Puzzle " + std::to_string(i) + ".qzl"),
                  fs::copy_options::skip_existing);
}

void close(Server& server) {
  server.keys({XK_Escape});
  waitFor(server, kChooser, false);
  std::this_thread::sleep_for(kFocus);
}

std::string pixels(Server& server) {
  return server.middle(kListWidth, kListHeight);
}

/// The chooser, opened from the play window, when all is painted. It keeps to the tab of last time.
std::string settledPicture(Server& server) {
  server.keys({XK_F2});
  waitFor(server, kChooser);
  std::this_thread::sleep_for(kSettled);
  return pixels(server);
}

/// Seconds from the key to the first moment at which the chooser looks as it will stay.
double secondsToOpen(Server& server, const std::string& settled) {
  const auto begin = Clock::now();
  server.keys({XK_F2});
  while (pixels(server) != settled) {
  }
  return Seconds(Clock::now() - begin).count();
}

struct Aims {
  Table::Aim seconds, megabytes;
};

void watchChooser(const fs::path& program, int count, const Aims& aims) {
  Server server;
  const fs::path folder = program.parent_path();
  fill(folder / "User", folder / "puzzles" / "rocket.qzl", count);
  const Running game(program.c_str());
  openPlayWindow(server);
  const double before = game.megabytes();
  settledPicture(server);
  server.keys({XK_Control_L, XK_Shift_L, XK_Tab});  // back from the first tab is the last, Other
  std::this_thread::sleep_for(kSettled);
  close(server);

  const std::string settled = settledPicture(server);
  double best = 1e9;
  for (int i = 0; i < kRounds; ++i) {
    close(server);
    best = std::min(best, secondsToOpen(server, settled));
    std::this_thread::sleep_for(kFocus);
  }
  const std::string puzzles = std::to_string(count) + " own puzzles: ";
  Table::row(puzzles + "seconds to open the chooser", Table::number(best, "s"), "", best,
             aims.seconds);
  Table::row(puzzles + "resident MiB with it open", Table::number(game.megabytes(), "MiB"),
             Table::number(before, "MiB"), game.megabytes(), aims.megabytes);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: quinzolith-bench-chooser GAME\n", stderr);
    return 2;
  }
  XSetErrorHandler(ignoreErrors);
  watchChooser(argv[1], 10'000, {Table::atMost(0.3), Table::below(100)});
  watchChooser(argv[1], 100'000, {Table::atMost(2), {}});
  return 0;
}
