// How long the user-interface thread waits for the tunes: opening and playing each that ships.
// Usage: quinzolith-bench-sound
#include <QCoreApplication>
#include <algorithm>
#include <filesystem>
#include <vector>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "sound/TunePlayer.h"

namespace fs = std::filesystem;

namespace {

constexpr double kFewMilliseconds = 5;

double milliseconds(TunePlayer& player, const char* command) {
  const auto work = [&](int) { player.Command(command); };
  return Stopwatch::once(1, work) / 1e6;
}

void row(const char* what, std::vector<double> times) {
  std::ranges::sort(times);
  Table::row(what, Table::number(times.back(), "ms"), Table::number(times[times.size() / 2], "ms"),
             times.back(), Table::atMost(kFewMilliseconds));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  std::vector<double> opening, playing;
  const auto player = makeTunePlayer();
  for (const auto& entry : fs::recursive_directory_iterator(QUINZOLITH_TUNES)) {
    if (entry.path().extension() != ".mid") continue;
    player->DeviceType = "Sequencer";
    player->FileName = entry.path();
    opening.push_back(milliseconds(*player, "Open"));
    playing.push_back(milliseconds(*player, "Play"));
    if (player->Mode() != TunePlayer::kPlaying) std::puts("A tune does not play!");
    player->Command("Close");
  }
  if (opening.empty()) return 1;
  row("opening a tune: worst in ms, beside the median", opening);
  row("playing a tune: worst in ms, beside the median", playing);
  return 0;
}
