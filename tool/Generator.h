#pragma once

#include <cstdint>
#include <optional>
#include <random>

#include "solver/Solver.h"
#include "tool/Rating.h"

namespace puzzle {

/// What the shape of a new puzzle is like.
enum class ShapeStyle {
  Free,    ///< grown at random
  Mirror,  ///< its own mirror image, left to right
  Both,    ///< its own mirror image both ways
  Hole,    ///< with a hole in the middle
  Glyph,   ///< a letter or digit
};

/// What a new puzzle shall be like.
struct Wanted {
  int pieces = 6;
  int width = 12, height = 12;  ///< the box in cells
  ShapeStyle style = ShapeStyle::Free;
  char glyph = 0;       ///< of the style Glyph; 0 for any letter or digit
  bool unique = false;  ///< its pieces have exactly one solution, up to symmetry
  std::optional<Level> level;
};

struct Generated {
  solver::Shape shape;
  solver::Solution solution;
};

/// A number below `limit`; the same on every machine, which the library's distributions are not.
int below(std::mt19937_64& random, int limit);

/// A shape of the wanted style, size and box; nothing when this try went wrong.
std::optional<solver::Shape> randomShape(const Wanted& wanted, std::mt19937_64& random);

/// The shape of a letter or digit in an installed font, at a size that the number of pieces allows.
/// Errors: Refusal when no font is installed.
std::optional<solver::Shape> glyphShape(const Wanted& wanted, std::mt19937_64& random);

/// Makes random shapes until one can be tiled by different pieces (from the thirteenth on, by two
/// of a type) and is as wanted, at most `tries` times, until `stop` says so, and as long as `nodes`
/// are left, from which those searched are taken. The same random numbers give the same puzzle.
std::optional<Generated> generatePuzzle(const Wanted& wanted, std::mt19937_64& random,
                                        std::uint64_t tries, std::uint64_t& nodes, bool (*stop)());

/// The twelve types in a random order.
solver::TypeOrder randomOrder(std::mt19937_64& random);

}  // namespace puzzle
