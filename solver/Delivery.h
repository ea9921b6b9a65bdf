#pragma once

#include <functional>
#include <vector>

#include "solver/Placement.h"
#include "solver/Work.h"

namespace solver {

/// Which solutions count: all, or one of each set of solutions that the symmetries of the shape lay
/// onto each other.
enum class Counting { All, UpToSymmetry };

/// Receives solutions; false ends the search.
using Deliver = std::function<bool(const Solution&)>;

/// How the solutions of a search are turned into those that are wanted.
struct SymmetryBreaking {
  std::vector<Symmetry> smallestUnder;  ///< keep a solution only if none of these makes it smaller
  std::vector<Symmetry> images;         ///< deliver what these make of it
};

/// Every symmetry kept by a search without tricks.
SymmetryBreaking plainBreaking(const Shape& shape, Counting counting);

/// The frame in which a search works: the shape trimmed and turned, its columns of few cells.
class Frame {
 public:
  /// `symmetry` is applied to the trimmed shape.
  Frame(const Shape& shape, Symmetry symmetry);
  /// The frame that goes into a window of 64 bits, or else of 128; of two the one whose columns
  /// hold fewer cells, since the edge of a partial tiling is shorter there. A shape on a diagonal
  /// may have tall columns of few cells.
  static Frame fewCellsAColumn(const Shape& shape);

  const Shape& shape() const { return shape_; }
  /// Where a cell of the original shape lies in shape().
  Cell apply(Cell cell) const;
  /// Moves a tiling of shape() into the coordinates of the original shape.
  void restore(Solution& solution) const;

 private:
  Shape shape_;
  Symmetry symmetry_, back_;
  int left_ = 0, top_ = 0;
};

/// Takes the solutions that a search finds in a frame, filters, multiplies, counts and hands on.
class Delivery {
 public:
  /// All of these outlive the delivery. An empty `deliver` only counts.
  Delivery(const Frame& frame, const Deliver& deliver, WorkMeter& meter)
      : frame_(frame), deliver_(deliver), meter_(meter) {}

  /// The same for the part of the work that another meter counts.
  Delivery countingOn(WorkMeter& meter) const { return {frame_, deliver_, meter}; }
  /// True when nobody wants to see the solutions.
  bool onlyCounts() const { return !deliver_; }

  /// Takes one solution; `make` builds it when it is needed at all. False ends the search.
  template <class Make>
  bool take(const SymmetryBreaking& breaking, Make&& make) {
    if (!deliver_ && breaking.smallestUnder.size() <= 1)
      return meter_.solutions(breaking.images.size());
    return takeBuilt(breaking, make());
  }

 private:
  bool isSmallest(const Solution& solution, const std::vector<Symmetry>& symmetries) const;
  bool takeBuilt(const SymmetryBreaking& breaking, const Solution& solution);

  const Frame& frame_;
  const Deliver& deliver_;
  WorkMeter& meter_;
  Solution image_;  // kept, so that delivering allocates nothing
};

}  // namespace solver
