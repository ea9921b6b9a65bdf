#include "solver/ProfileCount.h"
#include "tests/solver/Ways.h"

namespace solver {

namespace {

/// Every piece lies on kept cells of its type, or on none.
bool keeps(const Solution& solution, const Problem& problem) {
  return std::ranges::all_of(solution, [&](const Placement& placement) {
    const auto cells = cellsOf(placement);
    const auto kept = std::ranges::count_if(cells, [&](Cell cell) {
      const auto at = problem.kept.find(cell);
      return at != problem.kept.end() && at->second == placement.type;
    });
    const auto drawn =
        std::ranges::count_if(cells, [&](Cell cell) { return problem.kept.contains(cell); });
    return kept == drawn && (kept == 0 || kept == PENTO::kCells);
  });
}

}  // namespace

/// Boxes: that they are right is known from other programs' counts.
TEST(Counting, CountsWithoutListing) {
  const auto any = [](int width, int height) {
    return Problem{Shape::rectangle(width, height), PieceSet::ofEach(width * height / 5)};
  };
  const std::vector<std::pair<Problem, std::string>> known{{any(5, 3), "56"},
                                                           {any(5, 4), "501"},
                                                           {any(10, 3), "7670"},
                                                           {any(10, 4), "890989"},
                                                           {any(10, 5), "101698212"},
                                                           {any(6, 10), "7845888732"},
                                                           {any(10, 7), "756605877809"},
                                                           {any(25, 5), "2119788181584674612511"}};
  Limits shared;
  shared.alone = 1000;
  shared.threads = 3;
  for (const auto& [problem, count] : known) {
    const Work alone = countSolutions(problem, Counting::All);
    const Work together = countSolutions(problem, Counting::All, shared);
    EXPECT_EQ(decimal(alone.solutions), count);
    EXPECT_EQ(decimal(together.solutions), count);
    EXPECT_EQ(together.nodes, alone.nodes);
  }
  EXPECT_EQ(decimal(countSolutions(any(5, 6), Counting::UpToSymmetry).solutions), "7092");

  const Problem several{Shape::rectangle(10, 5), piecesOf({2, 5, 0, 9, 6, 11}, 2)};  // LPYNVT
  EXPECT_EQ(decimal(countSolutions(several, Counting::All).solutions), "74230");
  const Problem few{Shape::rectangle(18, 5), piecesOf({7, 10, 9}, 18)};  // FUN
  EXPECT_EQ(decimal(countSolutions(few, Counting::All).solutions), "200");
}

TEST(Counting, SaysWhenACountIsTooLarge) {
  const Problem strip{Shape::rectangle(5, 60), PieceSet::ofEach(60)};
  const Work digits = countSolutions(strip, Counting::All);
  EXPECT_EQ(digits.solutions, ~Count{0}) << "at least so many";
  EXPECT_FALSE(digits.complete);
  EXPECT_TRUE(digits.tooLarge);

  const PieceSet any = PieceSet::ofEach(12);
  const Cover cover(Shape::rectangle(12, 5), any, Symmetry{});
  const SupplyCode code(any, 12);
  const auto countWithin = [&](std::size_t bytes, const Limits& limits) {
    WorkMeter meter(limits);
    ProfileCount<Bits64, Count> profiles(cover, code, bytes, meter);
    const Count number = profiles.run();
    return std::pair(number, profiles.leftOut());
  };
  const auto whole = countWithin(std::size_t{1} << 24, {});
  EXPECT_FALSE(whole.second);
  Limits shared;
  std::set<Count> some;
  for (shared.alone = 100; shared.threads < 4; ++shared.threads) {
    const auto tight = countWithin(std::size_t{1} << 16, shared);
    EXPECT_TRUE(tight.second);
    some.insert(tight.first);
  }
  EXPECT_EQ(some.size(), 1u) << "left out the same for any number of threads";
  const auto tight = countWithin(std::size_t{1} << 14, {});
  EXPECT_TRUE(tight.second);
  EXPECT_LT(std::max(tight.first, *some.begin()), whole.first);
}

TEST(Counting, GoesOnFromAPosition) {
  std::mt19937 random(1009);
  Shape ring = Shape::rectangle(7, 5);
  for (int x = 1; x < 6; ++x) ring.set({x, 2}, false);
  for (const Problem& whole : {Problem{Shape::rectangle(5, 5)}, Problem{Shape::rectangle(4, 5)},
                               Problem{ring, PieceSet::ofEach(2)}}) {
    const std::set<Solution> all = BruteForce(whole).solutions();
    ASSERT_GT(all.size(), 10u);
    for (int round = 0; round < 12; ++round) {
      Problem problem = whole;
      const Solution& from = *std::next(all.begin(), static_cast<long>(random() % all.size()));
      for (int i = 0; i <= round % 3; ++i)
        for (const Cell cell : cellsOf(from[static_cast<std::size_t>(i)]))
          problem.kept[cell] = from[static_cast<std::size_t>(i)].type;
      std::set<Solution> expected;
      std::ranges::copy_if(all, std::inserter(expected, expected.end()),
                           [&](const Solution& solution) { return keeps(solution, problem); });
      for (const Strategy strategy : kStrategies)
        EXPECT_EQ(allOf(problem, Counting::All, strategy), expected);
      const std::size_t orbits = allOf(problem, Counting::UpToSymmetry, Strategy::Scan).size();
      EXPECT_LE(orbits, expected.size());
      for (const Strategy strategy : kStrategies) {
        EXPECT_EQ(countSolutions(problem, Counting::All, {}, strategy).solutions, expected.size());
        EXPECT_EQ(countSolutions(problem, Counting::UpToSymmetry, {}, strategy).solutions, orbits);
      }
      const Answer answer = findSolution(problem);
      ASSERT_TRUE(answer.solution);
      EXPECT_TRUE(expected.contains(sorted(*answer.solution)));
    }
  }
}

/// Every way to count, some of them shared from the first nodes on, and for several rounds.
TEST(Counting, IsTheSameForAnyNumberOfThreads) {
  std::mt19937 random(31);
  std::vector<Problem> problems{{Shape::rectangle(6, 5)},
                                {Shape::rectangle(6, 5), PieceSet::ofEach(2)}};
  for (int round = 0; round < 8; ++round)
    problems.push_back({randomShape(random, 25, 5, 8), randomSupply(random)});
  for (const Problem& problem : problems)
    for (const Strategy strategy : kStrategies)
      for (const Counting counting : {Counting::All, Counting::UpToSymmetry}) {
        const Work alone = countSolutions(problem, counting, {}, strategy);
        Limits limits;
        limits.alone = 1 << random() % 16;
        std::set<std::uint64_t> nodes;
        for (limits.threads = 1; limits.threads <= 3; ++limits.threads) {
          const Work shared = countSolutions(problem, counting, limits, strategy);
          EXPECT_TRUE(shared.complete);
          EXPECT_TRUE(shared.solutions == alone.solutions);
          nodes.insert(shared.nodes);
        }
        EXPECT_EQ(nodes.size(), 1u);
      }
}

}  // namespace solver
