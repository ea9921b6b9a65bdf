#pragma once

#include <random>
#include <string>
#include <vector>

#include "model/Random.h"
#include "model/basTiles.h"
#include "tests/model/Pieces.h"

/// A grid that stands in for a board control: it notes what the loader asks of the control.
struct BareTarget : PuzzleTarget {
  BareTarget(int width, int height, std::string name, std::vector<std::string>& calls)
      : grid(ringedGrid(width, height)), name_(std::move(name)), calls_(calls) {}

  PENTOGRID* Grid() const override { return &grid; }
  void RemoveFloatingPento() override { calls_.push_back(name_ + " RemoveFloatingPento"); }
  void PaintAll() override { calls_.push_back(name_ + " PaintAll"); }

  mutable PENTOGRID grid;

 private:
  std::string name_;
  std::vector<std::string>& calls_;
};

/// The play window's board and tray and the editor's board, registered as the loader's targets, and
/// a generator with a known start. The module's state is fresh before and after.
class BareWindows {
 public:
  explicit BareWindows(unsigned seed = 1) : generator_(seed) {
    reset();
    basTiles::targets = {&board, &tray, &editor};
  }
  BareWindows(BareWindows&&) = delete;
  ~BareWindows() { reset(); }

  std::vector<std::string> calls;  ///< what the loader asked of the controls, in order
  BareTarget board{14, 14, "board", calls};
  BareTarget tray{9, 36, "tray", calls};
  BareTarget editor{14, 14, "editor", calls};

 private:
  static void reset() {
    basTiles::targets = {};
    basTiles::AfterSave = nullptr;
    basTiles::LastFileError.clear();
    basTiles::CurrentPuzzleFile.clear();
    basTiles::CurrentFileName.clear();
    basTiles::fSaved = false;
    basTiles::fRandomRotation = true;
    basTiles::fRandomFlip = true;
    basTiles::fDeveloperVersion = false;
  }

  std::mt19937 generator_;
  Replacement<std::function<double()>> random_{
      RandomNumbers::next, [this] { return static_cast<double>(generator_()) * 0x1p-32; }};
};
