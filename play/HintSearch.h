#pragma once

#include <optional>
#include <vector>

#include "model/PENTOGRID.h"
#include "solver/Solver.h"

/// What the pieces that lie on a board still allow, asked of the solver in slices.
///
/// Where no solution is left, pieces are taken up from the last one laid on until one is, and then
/// each of them but the one that made the difference is tried again in its place. With fewer pieces
/// laid there are never fewer solutions, so none of those that are left out in the end can be
/// spared.
class HintSearch {
 public:
  enum class Finding {
    Fits,      ///< a solution is left: one loose piece, where it lies in a solution
    TakeUp,    ///< none is left: the laid pieces that must go
    NotKnown,  ///< no answer yet, or a shape that the pieces do not fill at all
  };
  struct Answer {
    Finding finding = Finding::NotKnown;
    std::vector<PENTO> pieces;  ///< their positions are cells of the board
  };

  /// `loose`: the pieces that do not lie on the board. The answer tells of the first one it can.
  HintSearch(const PENTOGRID& board, const std::vector<PentoRef>& loose);

  /// Goes on for about so many nodes. True when the answer is final.
  bool goOn(std::uint64_t nodes);
  const Answer& answer() const { return answer_; }

 private:
  struct Laid {
    PENTO piece;
    bool stays = true;
  };

  void ask();
  bool take(const std::optional<solver::Solution>& solution);
  bool takeUpAnother();
  bool tryNext();
  bool tellFitting(const solver::Solution& solution);

  solver::Shape free_;
  std::vector<int> loose_;  ///< types
  std::vector<Laid> laid_;  ///< in the order of laying
  std::size_t tried_;       ///< the laid piece that the question at hand is about
  bool allows_ = false;     ///< the pieces that stay allow a solution without the tried one
  std::optional<solver::SlicedSearch> search_;
  Answer answer_;
};
