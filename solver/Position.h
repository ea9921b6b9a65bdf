#pragma once

#include "solver/Solver.h"

namespace solver {

/// A problem with kept cells, taken apart into problems without any.
struct Position {
  Frame frame;                       ///< of the whole
  std::vector<Problem> parts;        ///< kept cells type by type, then the rest, in the frame
  std::vector<Symmetry> symmetries;  ///< lay each part onto itself

  explicit Position(const Problem& problem);
};

/// forEachSolution for a problem with kept cells.
Work forEachFromPosition(const Problem& problem, Counting counting, const Deliver& deliver,
                         const Limits& limits, Strategy strategy);

/// findSolution for a problem with kept cells.
Answer findFromPosition(const Problem& problem, const Limits& limits, const TypeOrder& order);

}  // namespace solver
