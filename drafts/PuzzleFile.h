#pragma once

#include <string>
#include <vector>

#include "model/PuzzleFormat.h"
#include "solver/Placement.h"

/// Puzzle files as makers see them: the words of a .qzl, what is wrong with them, and new ones.
namespace puzzle {

inline constexpr int kBoard = PuzzleFormat::kBoardSize;
inline constexpr int kArea = kBoard - 2;  ///< the inner area, inside the one-cell ring

struct PuzzleFile : PuzzleFormat::Contents {
  solver::Shape shape() const;        ///< the cells whose flag is 0, in the board's coordinates
  solver::Solution solution() const;  ///< the records, as they stand
};

bool isPuzzleFile(std::string_view bytes);

/// Errors: std::runtime_error when the file cannot be read to its last piece.
PuzzleFile readPuzzleFile(std::string_view bytes);

/// Everything that is wrong with a file, one sentence each; empty for a valid one.
std::vector<std::string> problemsOf(std::string_view bytes);

/// The bytes of a puzzle whose solution is centred on the inner area, to within half a cell.
/// Errors: Refusal when it does not fit there.
std::string makePuzzleFile(solver::Solution solution, char lockFlag);

/// A grid of the board's size with the shape's cells empty, all others background, and the pieces
/// of the solution laid down as far as they fit.
PENTOGRID boardWith(const solver::Shape& shape, const solver::Solution& solution);

}  // namespace puzzle
