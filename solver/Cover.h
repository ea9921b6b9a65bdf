#pragma once

#include <vector>

#include "solver/PieceSet.h"
#include "solver/Placement.h"
#include "solver/Window.h"

namespace solver {

/// What covers some positions at once: a piece, or a piece with its images under a symmetry.
struct CoverItem {
  Bits128 mask = 0;  ///< bit i is the i-th position behind the first one; bit 0 is set
  int type = 0;
  int copies = 1;  ///< how many pieces it takes
};

/// The tilings of a shape, or those of them that a symmetry lays onto themselves, as the exact
/// covers of a row of positions: column by column, with one position behind each column that
/// belongs to no cell.
///
/// A tiling that a symmetry g lays onto itself consists of whole orbits of pieces, and each of
/// these covers whole orbits of cells; an orbit of cells has the position of its first cell. No
/// item reaches farther than four columns: g folds the shape onto a part of it, and folding makes
/// no way longer.
class Cover {
 public:
  /// `shape` keeps its place in its box, and g lays it onto itself there. Only items that the
  /// supply holds are taken.
  Cover(const Shape& shape, const PieceSet& supply, Symmetry g);

  int positions() const { return static_cast<int>(items_.size()); }
  int stride() const { return stride_; }  ///< from column to column
  int reach() const { return reach_; }    ///< positions that the longest item spans
  bool isFree(int position) const { return free_[static_cast<std::size_t>(position)]; }
  /// The items whose first position this is.
  const std::vector<CoverItem>& itemsAt(int position) const {
    return items_[static_cast<std::size_t>(position)];
  }
  /// True when positions are cells: one whose neighbours are taken can then never be covered.
  bool isPlain() const { return plain_; }

 private:
  void addPieces(const Orientation& orientation, const Shape& shape,
                 const std::vector<Cell>& cells);
  void addOrbits(int type, int most, const Shape& shape, Symmetry g);
  void add(const std::vector<Cell>& cells, int type, int copies);
  int positionOf(Cell cell) const { return cell.x * stride_ + cell.y - top_; }

  bool plain_;
  int top_ = 0, stride_ = 1, reach_ = 1;
  std::vector<bool> free_;
  std::vector<std::vector<CoverItem>> items_;
};

}  // namespace solver
