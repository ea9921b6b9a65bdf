#include "tool/Generator.h"

#include <algorithm>

#include "drafts/Drawing.h"

namespace puzzle {

namespace {

/// One try is given up after this number of nodes: another shape is cheaper than a proof.
constexpr std::uint64_t kNodesPerTry = 200'000;
constexpr std::uint64_t kNodesToCount = 20'000'000;
constexpr std::uint64_t kNodesToRate = 100'000;

solver::Limits atMost(std::uint64_t nodes, std::uint64_t left) {
  solver::Limits limits;
  limits.nodes = std::min(nodes, left);
  return limits;
}

void take(std::uint64_t& left, const solver::Work& work) {
  left -= std::min(left, work.nodes);
}

bool isUnique(const Generated& puzzle, std::uint64_t& left) {
  solver::Limits limits = atMost(kNodesToCount, left);
  limits.solutions = 2;
  const solver::Work work = solver::countSolutions({puzzle.shape, piecesOf(puzzle.solution)},
                                                   solver::Counting::UpToSymmetry, limits);
  take(left, work);
  return work.complete && work.solutions == 1;
}

bool isOfLevel(const Generated& puzzle, Level level, std::uint64_t& left) {
  const Rating rating = rate(puzzle.shape, piecesOf(puzzle.solution), std::min(kNodesToRate, left));
  left -= std::min(left, rating.nodes);
  return rating.complete && levelOf(rating) == level;
}

}  // namespace

int below(std::mt19937_64& random, int limit) {
  return static_cast<int>(random() % static_cast<std::uint64_t>(limit));
}

solver::TypeOrder randomOrder(std::mt19937_64& random) {
  solver::TypeOrder order = solver::kAwkwardFirst;
  for (int i = PENTO::kTypes - 1; i > 0; --i)
    std::swap(order[static_cast<std::size_t>(i)],
              order[static_cast<std::size_t>(below(random, i + 1))]);
  return order;
}

std::optional<Generated> generatePuzzle(const Wanted& wanted, std::mt19937_64& random,
                                        std::uint64_t tries, std::uint64_t& nodes, bool (*stop)()) {
  const solver::PieceSet supply = solver::PieceSet::ofEach(1 + (wanted.pieces - 1) / PENTO::kTypes);
  for (std::uint64_t i = 0; i < tries && nodes > 0 && !stop(); ++i) {
    const std::optional<solver::Shape> shape = randomShape(wanted, random);
    if (!shape) continue;
    const auto answer =
        solver::findSolution({*shape, supply}, atMost(kNodesPerTry, nodes), randomOrder(random));
    take(nodes, answer.work);
    if (!answer.solution) continue;
    const Generated puzzle{*shape, *answer.solution};
    if (wanted.unique && !isUnique(puzzle, nodes)) continue;
    if (!wanted.level || isOfLevel(puzzle, *wanted.level, nodes)) return puzzle;
  }
  return std::nullopt;
}

}  // namespace puzzle
