#include "tour/Soak.h"

#include <iomanip>
#include <iostream>

#include "model/basTiles.h"
#include "platform/Program.h"
#include "script/Script.h"
#include "services/basKelvoMusic.h"

namespace {

constexpr std::size_t kEarly = 12;  // by this puzzle everything has been loaded once
constexpr double kMostGrowth = 1.05;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryTells = false;  // the sanitizer keeps what was freed for a while
#else
constexpr bool kMemoryTells = true;
#endif

double ratio(long later, long earlier) {
  return static_cast<double>(later) / static_cast<double>(earlier);
}

}  // namespace

void Soak::run() {
  hands_.waitOpen(program_.splash);
  hands_.clickOn(program_.splash, "imgPlay");
  Memory early{}, now{};
  std::size_t number = 0;
  for (const Catalogue::Entry& puzzle : Catalogue::entries()) {
    const bool easy = number++ % 2 == 0;
    play(puzzle, easy);
    now = Script::onScreen(Memory::trimmed);
    std::cout << std::setw(2) << number << "  " << puzzle.key << (easy ? ", easy" : ", normal")
              << ": RSS " << now.resident << " KiB, anonymous " << now.anonymous << " KiB"
              << std::endl;
    if (number == kEarly) early = now;
    const bool last = number == Catalogue::entries().size();
    hands_.clickOn(program_.finished, last ? "imgQuit" : "imgOpen");
  }
  hands_.waitClosed(program_.main);
  judge(early, now);
}

/// From the open chooser to the solved dialog.
void Soak::play(const Catalogue::Entry& puzzle, bool easy) {
  hands_.pick(puzzle, easy);
  const auto pieces = Script::onScreen([] { return Hands::solution(basTiles::CurrentPuzzleFile); });
  const auto carrying = easy ? Hands::Carrying::ButtonHeld : Hands::Carrying::ClickByClick;
  hands_.solve(pieces, carrying, [&](std::size_t laid) {
    if (laid + 1 < pieces.size())
      trials_.next();
    else
      trials_.restoreSize();  // so that memory is compared at one size
  });
  hands_.waitOpen(program_.finished);
  checkSolved();
}

void Soak::checkSolved() {
  if (Script::onScreen([this] { return int{program_.main.Grid->EmptyCount()}; }) != 0)
    throw Script::Error("The solved dialog came although the board has empty cells");
  Script::waitFor("the tune to sound", [this] {
    std::error_code none;
    return basKelvoMusic::SoundOn() && std::filesystem::file_size(soundFile_, none) > 0 && !none;
  });
}

void Soak::judge(const Memory& early, const Memory& late) const {
  const double resident = ratio(late.resident, early.resident);
  const double anonymous = ratio(late.anonymous, early.anonymous);
  std::cout << "Refused drops " << trials_.refusedDrops() << ", resizes " << trials_.resizes()
            << ", jumps " << trials_.jumps() << ", absences " << trials_.absences()
            << ".\nDisplay errors " << errors_.serverErrors() << ", lookups of a frame just gone "
            << errors_.lookupsInVain() << ", warnings " << errors_.warnings()
            << ".\nMemory, trimmed, at the last puzzle over that at the 12th: RSS " << resident
            << ", anonymous " << anonymous << std::endl;
  if (errors_.serverErrors() > 0 || errors_.warnings() > 0)
    throw Script::Error("The display or the toolkit complained");
  // Not the anonymous pages alone: they follow the instruments of the tune that happens to sound.
  if (kMemoryTells && resident > kMostGrowth) throw Script::Error("Memory grew by more than 5 %");
}
