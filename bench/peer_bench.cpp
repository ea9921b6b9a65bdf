// From a motion to its picture in another program that carries things with the button held, on an X
// server. Usage: quinzolith-bench-peer PROGRAM TITLE X Y
// TITLE is the beginning of its window's; X and Y, in pixels from the screen's middle, are a place
// of what it carries.
#include <cstdio>
#include <cstdlib>

#include "bench/Latency.h"
#include "bench/PlayWindow.h"
#include "bench/Running.h"
#include "bench/Table.h"

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fputs("Usage: quinzolith-bench-peer PROGRAM TITLE X Y\n", stderr);
    return 2;
  }
  Server server;
  const Running peer(argv[1]);
  waitFor(server, argv[2]);
  std::this_thread::sleep_for(kSettled);
  server.move(server.width() / 2 + std::atoi(argv[3]), server.height() / 2 + std::atoi(argv[4]));
  server.button(true);
  server.move(server.width() / 2, server.height() / 2);
  std::this_thread::sleep_for(kSettled);
  const auto taken = latencies(server);
  server.button(false);
  const auto line = [&](const char* what, double milliseconds) {
    Table::row(std::string(argv[2]) + ", from a motion to its picture, " + what,
               Table::number(milliseconds, "ms"), "", milliseconds, {});
  };
  line("median", taken[kMoves / 2]);
  line("99th", taken[kMoves / 100 * 99]);
  return 0;
}
