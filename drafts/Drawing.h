#pragma once

#include <map>
#include <string>
#include <string_view>

#include "solver/PieceSet.h"
#include "solver/Placement.h"

/// Puzzles as text: a title or lines "name: value", an empty line, and a picture in which each
/// character is a cell. docs/drawings.md describes it for makers of puzzles.
namespace puzzle {

struct Drawing {
  std::map<std::string, std::string> headers;  ///< by lower-case name: title, pieces, ...
  solver::Shape shape;                         ///< as wide as the longest line
  std::map<solver::Cell, int> types;           ///< the piece type of each cell drawn as a letter
  /// The picture's first line if it may be meant as a title although pieces have these letters.
  std::string perhapsTitle;

  std::string title() const;  ///< empty if there is none
};

/// Errors: Refusal with the line and what is wrong there.
Drawing readDrawing(std::string_view text);

/// The supply that "FFILP" or "all" names; blanks and commas do not count.
/// Errors: Refusal for a letter that is no pentomino.
solver::PieceSet readPieces(std::string_view letters);

/// A supply in words: its letters, or how many there are of each when they are too many to list.
std::string pieceNames(const solver::PieceSet& pieces);

/// The letters of the pieces of a set, or of a solution, in alphabetical order.
std::string pieceLetters(const solver::PieceSet& pieces);
solver::PieceSet piecesOf(const solver::Solution& solution);

/// The picture: '.' outside, '#' for uncovered cells, letters for the pieces; ends with a newline.
std::string picture(const solver::Shape& shape, const solver::Solution& solution);

}  // namespace puzzle
