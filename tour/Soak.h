#pragma once

#include "catalogue/Catalogue.h"
#include "tour/DisplayErrors.h"
#include "tour/Hands.h"
#include "tour/Memory.h"
#include "tour/Robot.h"
#include "tour/Trials.h"

/// Plays all standard puzzles one after another in one process, every other one in normal mode,
/// with a trial for nearly every piece, and watches memory and display meanwhile. Prints a line
/// for each puzzle.
///
/// Errors: Script::Error when a puzzle could not be solved, a trial failed, the display or the
///         toolkit complained, or memory grew by more than a twentieth from the 12th
///         puzzle to the last one.
class Soak {
 public:
  Soak(Robot& robot, Wiring& program, const DisplayErrors& errors,
       const std::filesystem::path& soundFile)
      : robot_(robot), program_(program), errors_(errors), soundFile_(soundFile) {}

  void run();

 private:
  void play(const Catalogue::Entry& puzzle, bool easy);
  void checkSolved();
  void judge(const Memory& early, const Memory& late) const;

  Robot& robot_;
  Wiring& program_;
  const DisplayErrors& errors_;
  const std::filesystem::path soundFile_;
  Hands hands_{robot_, program_};
  Trials trials_{robot_, program_, hands_};
};
