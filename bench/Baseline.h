#pragma once

#include <array>
#include <vector>

#include "solver/Solver.h"

namespace solver {

/// The plain solver that others are measured against: lowest free cell first, for each cell and
/// type the masks of the placements whose lowest cell it is, no pruning. A node is a piece laid.
template <class Bits>
class Baseline {
 public:
  enum class Order { ShortSideFirst, LongSideFirst };

  Baseline(const Shape& shape, const PieceSet& supply, Order order) : left_(supply) {
    const bool byColumns = (shape.height() <= shape.width()) == (order == Order::ShortSideFirst);
    cells_ = shape.cells();
    if (!byColumns)
      std::ranges::sort(cells_, {}, [](Cell cell) { return std::pair(cell.y, cell.x); });
    masks_.resize(cells_.size());
    for (const Orientation& orientation : orientations())
      for (int x = 0; x < shape.width(); ++x)
        for (int y = 0; y < shape.height(); ++y) add(placementOf(orientation, x, y));
    full_ = static_cast<Bits>(~Bits{0}) >> (kWindowBits<Bits> - static_cast<int>(cells_.size()));
  }

  Work countAll() {
    visit(0, false);
    return work_;
  }
  Work findFirst() {
    visit(0, true);
    return work_;
  }

 private:
  void add(const Placement& placement) {
    Bits mask = 0;
    for (const Cell cell : cellsOf(placement)) {
      const auto at = std::ranges::find(cells_, cell);
      if (at == cells_.end()) return;
      mask |= Bits{1} << (at - cells_.begin());
    }
    const auto lowest = static_cast<std::size_t>(lowestBit(mask));
    masks_[lowest][static_cast<std::size_t>(placement.type)].push_back(mask);
  }

  bool visit(Bits board, bool stopAtFirst) {
    if (board == full_) {
      ++work_.solutions;
      return stopAtFirst;
    }
    const auto& here = masks_[static_cast<std::size_t>(lowestBit(static_cast<Bits>(~board)))];
    for (std::size_t type = 0; type < here.size(); ++type) {
      if (left_.count[type] == 0) continue;
      --left_.count[type];
      for (const Bits mask : here[type]) {
        if ((board & mask) != 0) continue;
        ++work_.nodes;
        if (visit(board | mask, stopAtFirst)) return true;
      }
      ++left_.count[type];
    }
    return false;
  }

  PieceSet left_;
  std::vector<Cell> cells_;
  std::vector<std::array<std::vector<Bits>, PENTO::kTypes>> masks_;
  Bits full_ = 0;
  Work work_;
};

}  // namespace solver
