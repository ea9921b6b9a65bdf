#pragma once

#include <gtest/gtest.h>

#include "tests/solver/BruteForce.h"

namespace solver {

inline Solution sorted(Solution solution) {
  std::sort(solution.begin(), solution.end());
  return solution;
}

inline std::set<Solution> allOf(const Problem& problem, Counting counting, Strategy strategy) {
  std::set<Solution> found;
  const auto keep = [&](const Solution& solution) { return found.insert(sorted(solution)).second; };
  const Work work = forEachSolution(problem, counting, keep, {}, strategy);
  EXPECT_TRUE(work.complete) << "a solution came twice";
  EXPECT_EQ(work.solutions, found.size());
  return found;
}

/// The smallest image of each solution under the symmetries of the shape, told by the cells.
inline std::set<Solution> orbitsOf(const std::set<Solution>& solutions, const Shape& shape) {
  std::set<Solution> smallest;
  for (const Solution& solution : solutions) {
    std::set<Solution> images;
    for (const Symmetry symmetry : symmetriesOf(shape))
      images.insert(sorted(transformed(solution, symmetry, shape.width(), shape.height())));
    smallest.insert(*images.begin());
  }
  return smallest;
}

inline const std::vector<Strategy> kStrategies{Strategy::Scan, Strategy::Branch, Strategy::Meet,
                                               Strategy::Profiles, Strategy::Best};

/// What every strategy counts, against solutions that were found in the slow way.
inline void expectCounts(const Problem& problem, const std::set<Solution>& expected) {
  const Frame frame(problem.shape, Symmetry{});
  std::set<Solution> moved;
  for (Solution solution : expected) {
    for (Placement& placement : solution) {
      placement.x += frame.apply({0, 0}).x;
      placement.y += frame.apply({0, 0}).y;
    }
    moved.insert(solution);
  }
  const std::size_t orbits = orbitsOf(moved, frame.shape()).size();
  for (const Strategy strategy : kStrategies) {
    EXPECT_EQ(countSolutions(problem, Counting::All, {}, strategy).solutions, expected.size());
    EXPECT_EQ(countSolutions(problem, Counting::UpToSymmetry, {}, strategy).solutions, orbits);
  }
}

inline PieceSet piecesOf(const std::vector<int>& types, int each) {
  PieceSet set;
  for (const int type : types) set[type] = each;
  return set;
}

}  // namespace solver
