#pragma once

#include <map>
#include <memory>
#include <optional>

#include "solver/Delivery.h"
#include "solver/PieceSet.h"
#include "solver/Window.h"
#include "solver/Work.h"

/// Exact tilings of shapes by pentominoes: the first one, all of them, or their number.
///
/// Shapes: any set of cells, holes and several parts included, whose smaller side is at most 30; up
/// to 14 it is fastest. Errors: std::invalid_argument for a shape that is larger both ways.
/// A shape whose area is no multiple of 5, or needs more pieces than there are, has no solution;
/// that is found out without a search. The empty shape has one solution, of no pieces.
/// Every search is deterministic: the same call delivers the same solutions in the same order and
/// counts the same nodes. The symmetries of a problem lay its kept cells onto kept cells of the
/// same type.
namespace solver {

struct Problem {
  Shape shape;
  PieceSet supply = PieceSet::ofEach(1);
  /// Cells of the shape that pieces of one type cover, and nothing but these cells: a position from
  /// which the solver goes on.
  std::map<Cell, int> kept = {};
};

/// How all solutions are found. Each way finds the same ones, in an order of its own.
enum class Strategy {
  Best,      ///< the fastest for the problem
  Scan,      ///< the general search: lowest free cell first
  Branch,    ///< one piece is laid first, on one of each set of places that symmetry makes equal
  Meet,      ///< half the shape is searched, the other half is a graph of profiles
  Profiles,  ///< solutions are counted without being found; where each is wanted, as Best
};

/// Delivers every solution, its placements in no particular order, until `deliver` returns false.
/// With an empty `deliver` the solutions are only counted; a count of more than 128 bits, or one
/// that would take more than 1 GiB, is given as the most that could be counted, and is not
/// complete.
Work forEachSolution(const Problem& problem, Counting counting, const Deliver& deliver,
                     const Limits& limits = {}, Strategy strategy = Strategy::Best);

inline Work countSolutions(const Problem& problem, Counting counting, const Limits& limits = {},
                           Strategy strategy = Strategy::Best) {
  return forEachSolution(problem, counting, {}, limits, strategy);
}

struct Answer {
  std::optional<Solution> solution;
  Work work;  ///< without a solution: `complete` tells whether it is proved that there is none
};

/// The first solution, or the proof that there is none. The shape is scanned from one corner after
/// the other, with more and more nodes, since one scan may be hopeless where another is lucky.
Answer findSolution(const Problem& problem, const Limits& limits = {},
                    const TypeOrder& order = kAwkwardFirst);

/// findSolution in slices, for those who have other things to do between them. The problem keeps no
/// cells.
class SlicedSearch {
 public:
  explicit SlicedSearch(Problem problem);
  ~SlicedSearch();

  /// Goes on for about so many nodes. True when the answer is final.
  bool goOn(std::uint64_t nodes);
  const Answer& answer() const { return answer_; }

 private:
  class Race;
  template <class Bits, class Left>
  class RaceOf;

  const Problem problem_;
  std::unique_ptr<Race> race_;  ///< null when the answer is obvious
  Answer answer_;
};

}  // namespace solver
