#include "tool/Generator.h"

#include <algorithm>

#include "drafts/Drawing.h"

namespace puzzle {

namespace {

/// One try is given up after so many nodes: another shape is cheaper than a proof.
constexpr std::uint64_t kNodesPerTry = 200'000;
constexpr std::uint64_t kNodesToCount = 20'000'000;

/// A number below `limit`; the same on every machine, which the library's distributions are not.
int below(std::mt19937_64& random, int limit) {
  return static_cast<int>(random() % static_cast<std::uint64_t>(limit));
}

int neighboursOf(const solver::Shape& shape, solver::Cell cell) {
  return shape.contains({cell.x - 1, cell.y}) + shape.contains({cell.x + 1, cell.y}) +
         shape.contains({cell.x, cell.y - 1}) + shape.contains({cell.x, cell.y + 1});
}

/// Grows from the middle, by cells that touch the shape, more often where they touch it twice.
std::optional<solver::Shape> randomShape(const Wanted& wanted, std::mt19937_64& random) {
  const int cells = wanted.pieces * PENTO::kCells;
  const bool needsAxis = wanted.symmetric && cells % 2 != 0;  // of single cells: the width is odd
  const int width = wanted.width - (needsAxis && wanted.width % 2 == 0 ? 1 : 0);
  solver::Shape shape(width, wanted.height);
  constexpr int kPatience = 100;
  for (int tries = 0; shape.area() < cells && tries < kPatience * cells; ++tries) {
    const solver::Cell cell{below(random, width), below(random, wanted.height)};
    const solver::Cell twin{wanted.symmetric ? width - 1 - cell.x : cell.x, cell.y};
    const bool starts = shape.area() == 0 && cell.x == (width - 1) / 2;
    const int neighbours = neighboursOf(shape, cell);
    if (shape.contains(cell) || (!starts && neighbours == 0)) continue;
    if (neighbours == 1 && below(random, 3) != 0) continue;
    if (twin != cell && cells - shape.area() < 2) continue;  // one cell is left for the axis
    shape.set(cell);
    shape.set(twin);
  }
  if (shape.area() != cells) return std::nullopt;
  return shape.trimmed();
}

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

}  // namespace

solver::TypeOrder randomOrder(std::mt19937_64& random) {
  solver::TypeOrder order = solver::kAwkwardFirst;
  for (int i = PENTO::kTypes - 1; i > 0; --i)
    std::swap(order[static_cast<std::size_t>(i)],
              order[static_cast<std::size_t>(below(random, i + 1))]);
  return order;
}

std::optional<Generated> generatePuzzle(const Wanted& wanted, std::mt19937_64& random,
                                        std::uint64_t tries, std::uint64_t& nodes) {
  const solver::PieceSet supply = solver::PieceSet::ofEach(1 + (wanted.pieces - 1) / PENTO::kTypes);
  for (std::uint64_t i = 0; i < tries && nodes > 0; ++i) {
    const std::optional<solver::Shape> shape = randomShape(wanted, random);
    if (!shape) continue;
    const auto answer =
        solver::findSolution({*shape, supply}, atMost(kNodesPerTry, nodes), randomOrder(random));
    take(nodes, answer.work);
    if (!answer.solution) continue;
    const Generated puzzle{*shape, *answer.solution};
    if (!wanted.unique || isUnique(puzzle, nodes)) return puzzle;
  }
  return std::nullopt;
}

}  // namespace puzzle
