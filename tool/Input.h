#pragma once

#include <limits>

#include "solver/Solver.h"
#include "tool/CommandLine.h"

namespace puzzle {

/// What a drawing or a puzzle file says.
struct Input {
  std::string name;          ///< the file's name without folder and extension
  std::string title;         ///< of a drawing; may be empty
  std::string perhapsTitle;  ///< what a drawing may mean by letters that are pieces
  solver::Shape shape;
  solver::Solution solution;               ///< empty when a drawing shows only the shape
  std::map<solver::Cell, int> types;       ///< the piece type of each cell drawn as a letter
  std::optional<solver::PieceSet> supply;  ///< the pieces that the file names
};

/// "1 node", "2 nodes".
std::string plural(solver::Count number, const std::string& noun);

/// The whole file, pipe or device, or standard input for "-". Errors: Refusal, also of what goes on
/// behind the first MiB; no more than that is read.
std::string readAll(const std::string& file, Environment& environment);
/// Saves the file as the game does (files/SafeFile.h), sends to a device or pipe (files/Device.h);
/// "-" is standard output. Errors: Refusal.
void writeAll(const std::string& file, const std::string& bytes, Environment& environment);

/// Errors: Refusal if the file is a locked puzzle, which nothing writes over unasked.
void refuseLocked(const std::string& file);

/// The number from --seed, or a fresh one, which is told on `err`.
std::uint64_t seedFrom(const Arguments& arguments, Environment& environment);

/// Reads a drawing or a puzzle file, told apart by the signature.
/// Errors: Refusal, with the file's name; an invalid puzzle file is refused.
Input readInput(const std::string& file, Environment& environment);

/// The title, or the name of the file: what people call the puzzle.
std::string captionOf(const Input& input);

/// Moves shape, solution and letters into the smallest box, with `ring` empty cells around it.
void trim(Input& input, int ring);

/// Takes the letters of a drawing for its solution where all of its cells are lettered.
/// Errors: Refusal when they are no tiling.
void readLetters(Input& input, const solver::Limits& limits);

/// The pieces to solve with: --pieces, else what the file names, else all different ones as long as
/// there are enough. With --repeats any number of these, without names of all.
solver::PieceSet supplyFor(const Input& input, const Arguments& arguments);

/// Why the shape is no puzzle or cannot be solved with the supply; empty when it may be.
std::string objection(const Input& input, const solver::PieceSet& supply);

/// Where letters are only split into pieces, a search of some seconds is enough.
inline constexpr std::uint64_t kNodesToShow = 50'000'000;
inline constexpr std::uint64_t kUnlimited = std::numeric_limits<std::uint64_t>::max();
/// Limits from --limit, with a line of progress on `err` now and then.
solver::Limits limitsFrom(const Arguments& arguments, Environment& environment,
                          std::uint64_t otherwise = kUnlimited);

/// A tiling of the input that keeps to the letters drawn.
solver::Answer solve(const Input& input, const solver::PieceSet& supply,
                     const solver::Limits& limits,
                     const solver::TypeOrder& order = solver::kAwkwardFirst);

/// The solution that the input shows, or a found one.
/// Errors: Refusal that says what cannot be tiled by which pieces.
solver::Solution solutionOf(const Input& input, const solver::PieceSet& supply,
                            const solver::Limits& limits,
                            const solver::TypeOrder& order = solver::kAwkwardFirst);

}  // namespace puzzle
