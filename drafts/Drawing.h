#pragma once

#include <map>
#include <string>
#include <string_view>

#include "solver/PieceSet.h"
#include "solver/Placement.h"

/// Puzzles as text: "name: value" lines, an empty line, and a picture of one character a cell.
/// docs/drawings.md describes it for makers of puzzles.
namespace puzzle {

struct Drawing {
  std::map<std::string, std::string> headers;  ///< by lower-case name: title, pieces, ...
  solver::Shape shape;                         ///< as wide as the longest line
  std::map<solver::Cell, int> types;           ///< the piece type of each cell drawn as a letter
};

/// Errors: Refusal with the line and what is wrong there.
Drawing readDrawing(std::string_view text);

/// The supply that "FFILP" or "all" names; blanks and commas do not count.
/// Errors: Refusal for a letter that is no pentomino.
solver::PieceSet readPieces(std::string_view letters);

/// The letters of the pieces of a set, or of a solution, in alphabetical order.
std::string pieceLetters(const solver::PieceSet& pieces);
solver::PieceSet piecesOf(const solver::Solution& solution);

/// The picture: '.' outside, '#' for uncovered cells, letters for the pieces; ends with a newline.
std::string picture(const solver::Shape& shape, const solver::Solution& solution);

}  // namespace puzzle
