#pragma once

#include "solver/Solver.h"
#include "tool/CommandLine.h"

namespace puzzle {

/// What a drawing or a puzzle file says.
struct Subject {
  std::string name;  ///< the file's name without folder and extension
  solver::Shape shape;
  solver::Solution solution;  ///< empty when a drawing shows only the shape
  std::map<solver::Cell, int>
      types;  ///< cells of a drawing that belong to a piece of a certain type
  std::optional<solver::PieceSet> supply;  ///< the pieces that the file names
};

/// The whole file, or standard input for "-". Errors: Refusal.
std::string readAll(const std::string& file, Surroundings& surroundings);
/// Writes beside the file and renames, so that the old file or the new one is there; "-" is
/// standard output. A link keeps its place, and a device is written to. Errors: Refusal.
void writeAll(const std::string& file, const std::string& bytes, Surroundings& surroundings);

/// Reads a drawing or a puzzle file, told apart by the signature.
/// Errors: Refusal, with the file's name; an unsound puzzle file is refused.
Subject readSubject(const std::string& file, Surroundings& surroundings);

/// The pieces to solve with: --pieces, else what the file names, else all different ones as long as
/// there are enough (with --repeats: any).
solver::PieceSet supplyFor(const Subject& subject, const Given& given);

/// Why the shape is no puzzle or cannot be solved with the supply; empty when it may be.
std::string objection(const solver::Shape& shape, const solver::PieceSet& supply);

/// Limits from --limit, with a line of progress on `err` now and then.
solver::Limits limitsFrom(const Given& given, Surroundings& surroundings);

/// A tiling of the subject that keeps to the letters drawn.
solver::Answer solve(const Subject& subject, const solver::PieceSet& supply,
                     const solver::Limits& limits,
                     const solver::TypeOrder& order = solver::kAwkwardFirst);

/// The solution that the subject shows, or a found one.
/// Errors: Refusal that says what cannot be tiled by which pieces.
solver::Solution solutionOf(const Subject& subject, const solver::PieceSet& supply,
                            const solver::Limits& limits,
                            const solver::TypeOrder& order = solver::kAwkwardFirst);

}  // namespace puzzle
