#include "solver/Delivery.h"

#include <algorithm>
#include <tuple>

#include "solver/Window.h"

namespace solver {

SymmetryBreaking plainBreaking(const Shape& shape, Counting counting) {
  SymmetryBreaking breaking{{}, {Symmetry{}}};
  if (counting == Counting::UpToSymmetry) breaking.smallestUnder = symmetriesOf(shape);
  return breaking;
}

Frame::Frame(const Shape& shape, Symmetry symmetry)
    : shape_(shape.trimmed().transformed(symmetry)),
      symmetry_(symmetry),
      back_(symmetry.inverse()) {
  const std::vector<Cell> cells = shape.cells();
  if (cells.empty()) return;
  left_ = std::ranges::min(cells, {}, &Cell::x).x;
  top_ = std::ranges::min(cells, {}, &Cell::y).y;
}

namespace {

/// How many cells stand in a cell's own column, summed up over all cells.
long crowding(const Shape& shape) {
  long sum = 0;
  for (int x = 0; x < shape.width(); ++x) {
    long inColumn = 0;
    for (int y = 0; y < shape.height(); ++y) inColumn += shape.contains({x, y});
    sum += inColumn * inColumn;
  }
  return sum;
}

}  // namespace

Frame Frame::fewCellsAColumn(const Shape& shape) {
  const Shape upright = shape.trimmed(), turned = upright.transformed({1, false});
  const auto rank = [](const Shape& s) {
    const bool tall = s.height() > kTallestColumn<Bits64>;
    const bool tooTall = s.height() > kTallestColumn<Bits128>;
    return std::tuple(tooTall, tall, crowding(s), s.height());
  };
  return {shape, rank(upright) <= rank(turned) ? Symmetry{} : Symmetry{1, false}};
}

Cell Frame::apply(Cell cell) const {
  const bool sideways = symmetry_.turns % 2 != 0;
  return symmetry_.apply({cell.x - left_, cell.y - top_},
                         sideways ? shape_.height() : shape_.width(),
                         sideways ? shape_.width() : shape_.height());
}

void Frame::restore(Solution& solution) const {
  for (Placement& placement : solution) {
    if (back_ != Symmetry{})
      placement = transformed(placement, back_, shape_.width(), shape_.height());
    placement.x += left_;
    placement.y += top_;
  }
}

bool Delivery::isSmallest(const Solution& solution, const std::vector<Symmetry>& symmetries) const {
  if (symmetries.size() <= 1) return true;
  Solution sorted = solution;
  std::ranges::sort(sorted);
  return std::ranges::none_of(symmetries, [&](Symmetry symmetry) {
    Solution image = transformed(sorted, symmetry, frame_.shape().width(), frame_.shape().height());
    std::ranges::sort(image);
    return image < sorted;
  });
}

bool Delivery::takeBuilt(const SymmetryBreaking& breaking, const Solution& solution) {
  const int width = frame_.shape().width(), height = frame_.shape().height();
  if (!isSmallest(solution, breaking.smallestUnder)) return true;
  for (const Symmetry symmetry : breaking.images) {
    if (deliver_) {
      image_ = solution;
      if (symmetry != Symmetry{})
        for (Placement& placement : image_)
          placement = transformed(placement, symmetry, width, height);
      frame_.restore(image_);
      if (!deliver_(image_)) return meter_.solutions(1) && meter_.stop();
    }
    if (!meter_.solutions(1)) return false;
  }
  return true;
}

}  // namespace solver
