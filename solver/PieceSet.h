#pragma once

#include <array>
#include <numeric>

#include "model/PENTO.h"

namespace solver {

/// How many pieces of each type may be used: a supply. A shape of 5 n cells takes n of them, so a
/// supply of exactly n pieces is used up by every solution.
struct PieceSet {
  std::array<int, PENTO::kTypes> count{};

  /// `each` pieces of every type.
  static PieceSet ofEach(int each) {
    PieceSet set;
    set.count.fill(each);
    return set;
  }
  int& operator[](int type) { return count.at(static_cast<std::size_t>(type)); }
  int operator[](int type) const { return count.at(static_cast<std::size_t>(type)); }
  int total() const { return std::accumulate(count.begin(), count.end(), 0); }
  bool operator==(const PieceSet&) const = default;
};

}  // namespace solver
