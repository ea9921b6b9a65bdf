#pragma once

#include <cstdint>
#include <optional>
#include <random>

#include "solver/Solver.h"

namespace puzzle {

/// What a new puzzle shall be like.
struct Wanted {
  int pieces = 6;
  int width = 12, height = 12;  ///< the box in cells
  bool symmetric = false;       ///< the shape is its own mirror image, left to right
  bool unique = false;          ///< its pieces have exactly one solution, up to symmetry
};

struct Generated {
  solver::Shape shape;
  solver::Solution solution;
};

/// Grows random shapes until one can be tiled by different pieces (from the thirteenth on, by two
/// of a type) and is as wanted, at most `tries` times and as long as `nodes` are left, from which
/// those searched are taken. The same random numbers give the same puzzle.
std::optional<Generated> generatePuzzle(const Wanted& wanted, std::mt19937_64& random,
                                        std::uint64_t tries, std::uint64_t& nodes);

/// The twelve types in a random order.
solver::TypeOrder randomOrder(std::mt19937_64& random);

}  // namespace puzzle
