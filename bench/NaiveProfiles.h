#pragma once

#include <algorithm>
#include <map>
#include <unordered_map>

#include "solver/Solver.h"

namespace solver {

/// The obvious way to count over profiles: one hash map for each cell, in column order, from the
/// covered cells behind it and the pieces left to the number of ways to get there.
class NaiveProfiles {
 public:
  explicit NaiveProfiles(const Problem& problem) {
    const Shape& shape = problem.shape;
    stride_ = shape.height() + 1;
    end_ = shape.width() * stride_;
    for (const Cell cell : shape.cells()) free_.insert({position(cell), true});
    for (const Orientation& orientation : orientations()) {
      if (problem.supply[orientation.type] == 0) continue;
      for (const Placement& placement : placesOf(orientation.type, shape)) {
        if (placement.rotations != orientation.rotations || placement.flips != orientation.flips)
          continue;
        const auto cells = cellsOf(placement);
        Bits64 mask = 0;
        for (const Cell cell : cells) mask |= Bits64{1} << (position(cell) - position(cells[0]));
        items_[position(cells[0])].push_back({mask, placement.type});
      }
    }
    const bool counted = std::ranges::any_of(problem.supply.count, [&](int count) {
      return count > 0 && count < shape.area() / PENTO::kCells;
    });
    for (int type = 0; counted && type < PENTO::kTypes; ++type)
      start_ |= static_cast<Bits64>(problem.supply[type]) << (4 * type);
    counted_ = counted;
  }

  Work countAll() {
    std::vector<std::unordered_map<Bits128, Count, Hash>> at(static_cast<std::size_t>(end_) + 1);
    Work work;
    at[0][static_cast<Bits128>(start_) << 64] = 1;
    for (int here = 0; here < end_; ++here)
      for (const auto& [key, count] : at[static_cast<std::size_t>(here)])
        for (const auto& [window, left] :
             following(here, static_cast<Bits64>(key), static_cast<Bits64>(key >> 64))) {
          ++work.nodes;
          at[static_cast<std::size_t>(here) + 1][static_cast<Bits128>(left) << 64 | window] +=
              count;
        }
    for (const auto& [key, count] : at.back()) work.solutions += count;
    return work;
  }

 private:
  struct Hash {
    std::size_t operator()(Bits128 key) const {
      return static_cast<std::size_t>(key) * 0x9E3779B97F4A7C15 ^
             static_cast<std::size_t>(key >> 64) * 0xC2B2AE3D27D4EB4F;
    }
  };
  struct Item {
    Bits64 mask;
    int type;
  };

  int position(Cell cell) const { return cell.x * stride_ + cell.y; }

  std::vector<std::pair<Bits64, Bits64>> following(int here, Bits64 window, Bits64 left) const {
    std::vector<std::pair<Bits64, Bits64>> next;
    if ((window & 1) != 0 || !free_.contains(here)) return {{window >> 1, left}};
    const auto items = items_.find(here);
    if (items == items_.end()) return next;
    for (const Item& item : items->second) {
      if ((window & item.mask) != 0) continue;
      if (counted_ && (left >> (4 * item.type) & 15) == 0) continue;
      next.push_back(
          {(window | item.mask) >> 1, counted_ ? left - (Bits64{1} << (4 * item.type)) : left});
    }
    return next;
  }

  int stride_ = 1, end_ = 0;
  std::map<int, bool> free_;
  std::map<int, std::vector<Item>> items_;
  Bits64 start_ = 0;
  bool counted_ = false;
};

}  // namespace solver
