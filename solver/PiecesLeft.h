#pragma once

#include <algorithm>

#include "solver/PieceSet.h"
#include "solver/Window.h"

namespace solver {

/// What a scan may still lay, when no type may be used more than once.
class OneEach {
 public:
  OneEach() = default;
  template <class Bits>
  OneEach(const PieceSet& supply, const WindowTables<Bits>& tables) : allowed_(0) {
    for (int type = 0; type < PENTO::kTypes; ++type)
      if (supply[type] > 0) allowed_ |= tables.ofType(type);
  }
  OrientationSet allowed() const { return allowed_; }
  template <class Bits>
  OneEach without(int orientation, const WindowTables<Bits>& tables) const {
    OneEach left = *this;
    left.allowed_ &= ~tables.kin(orientation);
    return left;
  }

 private:
  OrientationSet allowed_;
};

/// The same for types that may be used again and again: beside the allowed orientations one number
/// holds the twelve counts, each in bits of its own.
template <class Counts>
class CountedPieces {
  static constexpr int kWidth = static_cast<int>(8 * sizeof(Counts)) / PENTO::kTypes;

 public:
  /// The largest count that can be kept; there may be more pieces than that in the supply only when
  /// the shape cannot use them up.
  static constexpr int kMost = (1 << kWidth) - 1;

  CountedPieces() = default;
  template <class Bits>
  CountedPieces(const PieceSet& supply, const WindowTables<Bits>& tables)
      : allowed_(OneEach(supply, tables).allowed()), counts_(0) {
    for (int type = 0; type < PENTO::kTypes; ++type)
      counts_ |= static_cast<Counts>(std::min(supply[type], kMost)) << (kWidth * type);
  }
  OrientationSet allowed() const { return allowed_; }
  template <class Bits>
  CountedPieces without(int orientation, const WindowTables<Bits>& tables) const {
    const int shift = kWidth * tables.type(orientation);
    CountedPieces left = *this;
    left.counts_ -= Counts{1} << shift;
    const bool usedUp = (left.counts_ >> shift & kMost) == 0;
    left.allowed_ &= ~(tables.kin(orientation) & -OrientationSet{usedUp});
    return left;
  }

 private:
  OrientationSet allowed_ = 0;
  Counts counts_;
};

}  // namespace solver
