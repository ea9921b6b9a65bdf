#pragma once

#include <cstdint>
#include <string_view>

#include "solver/PieceSet.h"
#include "solver/Shape.h"

namespace puzzle {

/// The chooser's tabs, from the easiest on.
enum class Level { Novice, Easy, Intermediate, Expert };
inline constexpr std::string_view kLevels = "Novice|Easy|Intermediate|Expert";

/// How hard a puzzle is for a person who looks for the tightest place, the cell that the fewest
/// pieces can fill, and tries there one piece after the other, in any order, until it fits.
struct Rating {
  int pieces = 0;
  std::uint64_t solutions = 0;  ///< all, turned and mirrored ones too
  double laid = 0;              ///< pieces laid until the first solution, on the average
  double forced = 0;            ///< of the pieces of a solution: laid where only one fits
  double deadEnd = 0;           ///< wrong pieces laid until none fits somewhere, on the average
  std::uint64_t nodes = 0;      ///< pieces laid to find all this out
  bool complete = true;         ///< false when the limit ended it early

  /// The one number: how many times the pieces laid are twice those of a puzzle of one piece.
  double value() const;
};

/// Rates a shape that the pieces fill. Errors: std::out_of_range when it takes more pieces than
/// PuzzleFormat::kMostPieces.
/// Algorithm: the whole tree of that search. Where m pieces can be tried and k of them lead to a
/// solution, (m - k) / (k + 1) wrong ones come before the first right one; the pieces laid in vain
/// follow from the sizes of the wrong branches.
Rating rate(const solver::Shape& shape, const solver::PieceSet& supply, std::uint64_t mostNodes);

/// The level whose puzzles among the standard ones have such a rating.
Level levelOf(const Rating& rating);

}  // namespace puzzle
