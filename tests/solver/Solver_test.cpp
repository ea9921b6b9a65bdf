#include "solver/Solver.h"

#include "solver/FinishingSets.h"
#include "solver/Scan.h"
#include "tests/solver/Ways.h"

namespace solver {

namespace {

struct KnownCount {
  Shape shape;
  std::uint64_t all, upToSymmetry;
};

}  // namespace

TEST(Solver, FindsTheKnownCounts) {
  const std::vector<KnownCount> known{{Shape::rectangle(3, 20), 8, 2},
                                      {Shape::rectangle(15, 4), 1472, 368},
                                      {Shape::rectangle(12, 5), 4040, 1010},
                                      {Shape::rectangle(6, 10), 9356, 2339},
                                      {holedSquare(), 520, 65}};
  for (const KnownCount& entry : known)
    for (const Strategy strategy : kStrategies) {
      EXPECT_EQ(countSolutions({entry.shape}, Counting::All, {}, strategy).solutions, entry.all);
      EXPECT_EQ(countSolutions({entry.shape}, Counting::UpToSymmetry, {}, strategy).solutions,
                entry.upToSymmetry);
      const Replacement narrow(FinishingSets::wideRegisters, false);
      EXPECT_EQ(countSolutions({entry.shape}, Counting::All, {}, Strategy::Meet).solutions,
                entry.all);
    }
}

TEST(Solver, FindsExactlyTheSolutionsOfTheSlowWay) {
  std::mt19937 random(20240607);
  int solvable = 0;
  for (int round = 0; round < 100; ++round) {
    SCOPED_TRACE(round);
    const int cells = 5 * (1 + round % 5);
    solvable +=
        expectSolvedAlike({randomShape(random, cells, 4 + round % 3, 8), randomSupply(random)});
  }
  EXPECT_GT(solvable, 20) << "the rounds prove little";
}

/// What the fast strategies ask for: different pieces, all of them used, and now and then a
/// symmetry.
TEST(Solver, FindsTheSameByEveryStrategyWithDifferentPieces) {
  std::mt19937 random(4711);
  int solvable = 0;
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    const Replacement registers(FinishingSets::wideRegisters,
                                *FinishingSets::wideRegisters && round % 4 < 2);
    Problem problem{randomShape(random, 30, 5 + round % 3, 6 + round % 3), {}};
    if (round % 2 == 0)
      problem.shape = Shape::rectangle(round % 4 == 0 ? 6 : 5, round % 4 == 0 ? 5 : 6);
    for (int left = problem.shape.area() / 5; left > 0;) {
      int& count = problem.supply[static_cast<int>(random() % PENTO::kTypes)];
      left -= count == 0;
      count = 1;
    }
    solvable += expectSolvedAlike(problem);
  }
  EXPECT_GE(solvable, 5) << "the rounds prove little";
}

TEST(Solver, DeliversOneSolutionOfEachOrbit) {
  Shape plus = Shape::rectangle(5, 5);  // pieces can lie on its axes
  for (const Cell cell : {Cell{0, 0}, Cell{4, 0}, Cell{0, 4}, Cell{4, 4}, Cell{2, 2}})
    plus.set(cell, false);
  for (const Problem& problem :
       {Problem{Shape::rectangle(5, 5)}, Problem{Shape::rectangle(4, 5)},
        Problem{Shape::rectangle(5, 4), PieceSet::ofEach(2)},
        Problem{Shape::rectangle(3, 5), PieceSet::ofEach(3)}, Problem{plus, PieceSet::ofEach(4)}})
    EXPECT_TRUE(expectSolvedAlike(problem));
}

TEST(Solver, CountsTheSameWithAndWithoutDelivering) {
  for (const Strategy strategy : kStrategies)
    for (const Counting counting : {Counting::All, Counting::UpToSymmetry}) {
      const Problem problem{Shape::rectangle(4, 15)};
      Work delivered = forEachSolution(
          problem, counting, [](const Solution&) { return true; }, {}, strategy);
      const Work counted = countSolutions(problem, counting, {}, strategy);
      EXPECT_EQ(delivered.solutions, counted.solutions);
      if (strategy == Strategy::Profiles) continue;  // delivers in another way
      EXPECT_EQ(delivered.nodes, counted.nodes) << "two runs, two amounts of work";
    }
}

TEST(Solver, GoesOnWhereItWasInterrupted) {
  const Scan<Bits64> scan(Shape::rectangle(6, 5));
  for (const std::uint64_t turn : {1, 2, 7, 50}) {
    ScanSearch<Bits64, OneEach> search(scan.tables, scan.layout, PieceSet::ofEach(1));
    const Limits none;
    WorkMeter meter(none);
    bool done = false;
    while (!done) {
      meter.interruptAfter(turn);
      done = search.run(scan.layout.end(), meter, [&](auto&&...) { return meter.solutions(1); });
    }
    EXPECT_TRUE(meter.work.solutions == 2164) << turn;
    EXPECT_TRUE(meter.work.complete);
  }
}

TEST(Solver, SolvesWideShapesWithManyPiecesOfAType) {
  for (const int side : {14, 15, 20, 30}) {
    const Problem problem{Shape::rectangle(side, 35), PieceSet::ofEach(30)};
    const Answer answer = findSolution(problem);
    ASSERT_TRUE(answer.solution) << side;
    Shape covered(side, 35);
    for (const Placement& placement : *answer.solution)
      for (const Cell cell : cellsOf(placement)) {
        EXPECT_FALSE(covered.contains(cell));
        covered.set(cell);
      }
    EXPECT_EQ(covered, problem.shape);
  }
  EXPECT_THROW(findSolution({Shape::rectangle(35, 31), PieceSet::ofEach(99)}),
               std::invalid_argument);
  Shape tall(16, 40);  // its columns hold fewer cells than its rows, but only its rows will do
  for (int x = 0; x < 16; ++x) tall.set({x, 0});
  for (int y = 1; y < 40; ++y) tall.set({y * 15 / 39, y});
  EXPECT_FALSE(findSolution({tall, PieceSet::ofEach(99)}).solution);
}

TEST(Solver, JoinsPartsThatLieFarApart) {
  Problem problem{Shape(360, 5), piecesOf({0, 1, 2, 3, 4, 5}, 1)};
  for (const Orientation& piece : orientations())
    if (piece.type < 6 && piece.rotations == 0 && piece.flips == 0)
      for (const Cell cell : piece.cells) problem.shape.set({cell.x + 70 * piece.type, cell.y});
  for (const Strategy strategy : kStrategies)
    EXPECT_EQ(countSolutions(problem, Counting::All, {}, strategy).solutions, 1u);
}

TEST(Solver, KnowsWithoutSearchingWhatCannotBeTiled) {
  for (const Problem& problem : {Problem{Shape::rectangle(4, 4)}, Problem{Shape::rectangle(5, 13)},
                                 Problem{Shape::rectangle(5, 2), PieceSet::ofEach(0)}}) {
    const Work work = countSolutions(problem, Counting::All);
    EXPECT_EQ(work.solutions, 0u);
    EXPECT_EQ(work.nodes, 0u);
    EXPECT_TRUE(work.complete);
  }
  EXPECT_EQ(countSolutions({Shape(3, 3)}, Counting::All).solutions, 1u);
  for (const Strategy strategy : kStrategies) {
    const Problem piece{Shape::rectangle(5, 1), piecesOf({1}, 1)};
    EXPECT_EQ(countSolutions(piece, Counting::All, {}, strategy).solutions, 1u);
  }
}

TEST(Solver, StopsAtItsLimitsAndReportsOnTheWay) {
  const Problem problem{Shape::rectangle(6, 10)};
  Limits limits;
  limits.nodes = 100000;
  limits.reportEvery = 10000;
  std::vector<std::uint64_t> reports;
  limits.progress = [&](const Work& work) { reports.push_back(work.nodes); };
  const Work work = countSolutions(problem, Counting::All, limits, Strategy::Scan);
  EXPECT_FALSE(work.complete);
  EXPECT_EQ(work.nodes, 100000u);
  ASSERT_EQ(reports.size(), 9u);
  EXPECT_EQ(reports.back(), 90000u);

  Problem hopeless = problem;  // two X and no I
  hopeless.supply[8] = 2;
  hopeless.supply[1] = 0;
  limits.nodes = 5000;
  limits.reportEvery = 1000;
  reports.clear();
  const Answer none = findSolution(hopeless, limits);
  EXPECT_FALSE(none.solution);
  EXPECT_FALSE(none.work.complete) << "nothing is proved yet";
  EXPECT_EQ(none.work.nodes, 5000u);
  EXPECT_FALSE(reports.empty());

  Limits few;
  few.solutions = 2;
  for (const Strategy strategy : kStrategies) {
    const Work two = countSolutions(problem, Counting::All, few, strategy);
    EXPECT_GE(two.solutions, 2u);
    EXPECT_LE(two.solutions, 8u);  // symmetric ones come together
    EXPECT_FALSE(two.complete);
  }
}

}  // namespace solver
