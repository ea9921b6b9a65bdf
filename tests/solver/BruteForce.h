#pragma once

#include <functional>
#include <random>
#include <set>

#include "model/PENTOGRID.h"
#include "solver/Solver.h"

namespace solver {

/// The slow and obvious way: lay the model's own pieces onto the model's own grid, wherever
/// AddPento lets them cover the first empty cell. Shares nothing with the solver but its types.
class BruteForce {
 public:
  explicit BruteForce(const Problem& problem) : left_(problem.supply) {
    const Shape& shape = problem.shape;
    grid_.SetGridSize(static_cast<std::int16_t>(shape.width()),
                      static_cast<std::int16_t>(shape.height()));
    for (int x = 0; x < shape.width(); ++x)
      for (int y = 0; y < shape.height(); ++y)
        if (!shape.contains({x, y})) grid_.SetGridBackground(x, y);
  }

  std::set<Solution> solutions() {
    visit();
    return found_;
  }

 private:
  void visit() {
    for (int x = 0; x < grid_.Width(); ++x)
      for (int y = 0; y < grid_.Height(); ++y)
        if (grid_.IsEmpty(x, y)) return cover(x, y);
    Solution solution;
    for (const auto& [id, piece] : grid_.PentoCollection()) solution.push_back(placement(*piece));
    std::sort(solution.begin(), solution.end());
    found_.insert(solution);
  }

  void cover(int x, int y) {
    for (int type = 0; type < PENTO::kTypes; ++type) {
      if (left_[type] == 0) continue;
      --left_[type];
      std::set<std::set<std::pair<int, int>>> tried;  // a turned X is the same X
      for (int turn = 0; turn < 8; ++turn) {
        const PentoRef piece = turned(type, turn);
        if (!tried.insert(cells(*piece)).second) continue;
        for (int i = 0; i < PENTO::kCells; ++i) {
          if (!grid_.AddPento(piece, x - piece->GridX(i), y - piece->GridY(i))) continue;
          visit();
          grid_.RemovePento(x, y);
        }
      }
      ++left_[type];
    }
  }

  static PentoRef turned(int type, int turn) {
    auto piece = std::make_shared<PENTO>();
    piece->PentoType(static_cast<std::int16_t>(type));
    for (int i = 0; i < turn % 4; ++i) piece->Rotate();
    for (int i = 0; i < turn / 4; ++i) piece->Flip();
    return piece;
  }
  static std::set<std::pair<int, int>> cells(const PENTO& piece) {
    std::set<std::pair<int, int>> result;
    for (int i = 0; i < PENTO::kCells; ++i) result.insert({piece.GridX(i), piece.GridY(i)});
    return result;
  }
  static Placement placement(const PENTO& piece) {
    return {piece.PentoType(), piece.X(), piece.Y(), piece.RotationCount, piece.FlipCount};
  }

  PENTOGRID grid_;
  PieceSet left_;
  std::set<Solution> found_;
};

/// `pieces` pieces grown together at random, or, when `loose`, cells that may have no tiling.
inline Shape randomShape(std::mt19937& random, int cells, int width, int height) {
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  Shape shape(width, height);
  shape.set({below(width), below(height)});
  while (shape.area() < cells) {
    const Cell cell{below(width), below(height)};
    const bool touches =
        shape.contains({cell.x - 1, cell.y}) || shape.contains({cell.x + 1, cell.y}) ||
        shape.contains({cell.x, cell.y - 1}) || shape.contains({cell.x, cell.y + 1});
    if (touches || random() % 16 == 0) shape.set(cell);  // now and then a part of its own
  }
  return shape;
}

/// A supply of up to three pieces of some types.
inline PieceSet randomSupply(std::mt19937& random) {
  PieceSet supply;
  for (int& count : supply.count) count = static_cast<int>(random() % 4);
  return supply;
}

}  // namespace solver
