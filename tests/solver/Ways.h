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

/// Every strategy finds and counts what the slow way finds, also up to symmetry. Returns whether
/// there is a solution.
inline bool expectSolvedAlike(const Problem& problem) {
  const std::set<Solution> expected = BruteForce(problem).solutions();
  const Frame frame(problem.shape, Symmetry{});  // symmetries are those of the trimmed shape
  std::set<Solution> moved;
  for (Solution solution : expected) {
    for (Placement& placement : solution) {
      placement.x += frame.apply({0, 0}).x;
      placement.y += frame.apply({0, 0}).y;
    }
    moved.insert(solution);
  }
  const std::set<Solution> orbits = orbitsOf(moved, frame.shape());
  for (const Strategy strategy : kStrategies) {
    EXPECT_EQ(allOf(problem, Counting::All, strategy), expected);
    if (frame.shape() == problem.shape) {
      const std::set<Solution> found = allOf(problem, Counting::UpToSymmetry, strategy);
      EXPECT_EQ(found.size(), orbits.size());
      EXPECT_EQ(orbitsOf(found, problem.shape), orbits);
    }
    EXPECT_EQ(countSolutions(problem, Counting::All, {}, strategy).solutions, expected.size());
    EXPECT_EQ(countSolutions(problem, Counting::UpToSymmetry, {}, strategy).solutions,
              orbits.size());
  }
  EXPECT_EQ(findSolution(problem).solution.has_value(), !expected.empty());
  return !expected.empty();
}

inline Shape holedSquare() {
  Shape shape = Shape::rectangle(8, 8);
  for (int x = 3; x < 5; ++x)
    for (int y = 3; y < 5; ++y) shape.set({x, y}, false);
  return shape;
}

inline PieceSet piecesOf(const std::vector<int>& types, int each) {
  PieceSet set;
  for (const int type : types) set[type] = each;
  return set;
}

}  // namespace solver
