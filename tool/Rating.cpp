#include "tool/Rating.h"

#include <algorithm>
#include <bitset>
#include <cmath>
#include <map>
#include <vector>

#include "model/PuzzleFormat.h"
#include "solver/Placement.h"

namespace puzzle {

namespace {

constexpr std::size_t kMostCells = PuzzleFormat::kMostPieces * PENTO::kCells;
using Cells = std::bitset<kMostCells>;

/// One way to lay a piece into the shape.
struct Way {
  int type;
  Cells cells;
  std::array<int, PENTO::kCells> numbers;
};

/// What is known of the search below some pieces laid.
struct Branch {
  std::uint64_t solutions = 0;
  double nodes = 0;      ///< all pieces laid in it
  double laid = 0;       ///< with a solution: those laid until the first one, on the average
  double forced = 0;     ///< of those of the solution, laid where only one fits
  double deadEnds = 0;   ///< without a solution: how often it ends
  double deadDepth = 0;  ///< and after how many pieces each, in sum
};

class Search {
 public:
  Search(const solver::Shape& shape, const solver::PieceSet& supply, std::uint64_t mostNodes)
      : left_(supply), mostNodes_(mostNodes) {
    for (const solver::Cell cell : shape.cells()) numbers_.emplace(cell, numbers_.size());
    for (const solver::Orientation& orientation : solver::orientations())
      if (supply[orientation.type] > 0)
        for (int x = 0; x < shape.width(); ++x)
          for (int y = 0; y < shape.height(); ++y) addWay(orientation, x, y);
  }

  Branch run() { return branch(ways_, Cells(), static_cast<int>(numbers_.size())); }
  std::uint64_t nodes = 0;
  bool complete = true;
  /// Sums over all wrong branches beside right ones.
  double deadEnds = 0, deadDepth = 0;

 private:
  void addWay(const solver::Orientation& orientation, int x, int y) {
    Way way{orientation.type, {}, {}};
    for (std::size_t i = 0; i < orientation.cells.size(); ++i) {
      const auto found = numbers_.find({x + orientation.cells[i].x, y + orientation.cells[i].y});
      if (found == numbers_.end()) return;
      way.numbers[i] = static_cast<int>(found->second);
      way.cells.set(found->second);
    }
    ways_.push_back(way);
  }

  /// The free cell with the fewest ways.
  int tightest(const std::vector<Way>& ways, const Cells& covered) const {
    std::vector<int> count(numbers_.size());
    for (const Way& way : ways)
      for (const int number : way.numbers) ++count[static_cast<std::size_t>(number)];
    int best = -1;
    for (std::size_t i = 0; i < count.size(); ++i)
      if (!covered[i] && (best < 0 || count[i] < count[static_cast<std::size_t>(best)]))
        best = static_cast<int>(i);
    return best;
  }

  std::vector<Way> waysBeside(const std::vector<Way>& ways, const Way& laid) const {
    std::vector<Way> rest;
    for (const Way& way : ways)
      if (left_[way.type] > 0 && (way.cells & laid.cells).none()) rest.push_back(way);
    return rest;
  }

  Branch branch(const std::vector<Way>& ways, const Cells& covered, int cellsLeft) {
    if (cellsLeft == 0) return {1, 0, 0, 0, 0, 0};
    const auto cell = static_cast<std::size_t>(tightest(ways, covered));
    std::vector<Branch> tried;
    for (const Way& way : ways) {
      if (!way.cells[cell]) continue;
      if (nodes >= mostNodes_) complete = false;
      if (!complete) break;
      ++nodes;
      --left_[way.type];
      tried.push_back(
          branch(waysBeside(ways, way), covered | way.cells, cellsLeft - PENTO::kCells));
      ++left_[way.type];
    }
    return merged(tried);
  }

  /// What trying these one after the other, in any order, comes to.
  Branch merged(const std::vector<Branch>& tried) {
    Branch all;
    double right = 0, wrongNodes = 0;
    for (const Branch& branch : tried) {
      all.solutions += branch.solutions;
      all.nodes += 1 + branch.nodes;
      all.deadEnds += branch.deadEnds;
      all.deadDepth += branch.deadDepth + branch.deadEnds;
      if (branch.solutions == 0) {
        wrongNodes += 1 + branch.nodes;
        continue;
      }
      ++right;
      all.laid += branch.laid;
      all.forced += branch.forced;
    }
    if (tried.empty()) all.deadEnds = 1;
    if (right == 0) return all;
    all.laid = all.laid / right + 1 + wrongNodes / (right + 1);
    all.forced = all.forced / right + (tried.size() == 1 ? 1 : 0);
    for (const Branch& branch : tried)
      if (branch.solutions == 0) {
        deadEnds += branch.deadEnds;
        deadDepth += branch.deadDepth + branch.deadEnds;
      }
    all.deadEnds = all.deadDepth = 0;
    return all;
  }

  std::map<solver::Cell, std::size_t> numbers_;
  std::vector<Way> ways_;
  solver::PieceSet left_;
  std::uint64_t mostNodes_;
};

}  // namespace

double Rating::value() const {
  return std::log2(std::max(laid, 1.0));
}

Rating rate(const solver::Shape& shape, const solver::PieceSet& supply, std::uint64_t mostNodes) {
  Search search(shape, supply, mostNodes);
  const Branch all = search.run();
  Rating rating;
  rating.pieces = shape.area() / PENTO::kCells;
  rating.solutions = all.solutions;
  rating.laid = all.laid;
  rating.forced = all.forced;
  rating.deadEnd = search.deadEnds > 0 ? search.deadDepth / search.deadEnds : 0;
  rating.nodes = search.nodes;
  rating.complete = search.complete;
  return rating;
}

Level levelOf(const Rating& rating) {
  constexpr std::array<double, 3> kBounds{3, 4.5, 7.75};
  const auto above = std::ranges::count_if(kBounds, [&](double b) { return rating.value() >= b; });
  return static_cast<Level>(above);
}

}  // namespace puzzle
