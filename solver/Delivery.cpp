#include "solver/Delivery.h"

#include <algorithm>

Harvest plainHarvest(const Shape& shape, Counting counting) {
  Harvest harvest{{}, {Symmetry{}}};
  if (counting == Counting::UpToSymmetry) harvest.smallestUnder = symmetriesOf(shape);
  return harvest;
}

Frame::Frame(const Shape& shape, Symmetry symmetry)
    : shape_(shape.trimmed().transformed(symmetry)), back_(symmetry.inverse()) {
  const std::vector<Cell> cells = shape.cells();
  if (cells.empty()) return;
  left_ = std::ranges::min(cells, {}, &Cell::x).x;
  top_ = std::ranges::min(cells, {}, &Cell::y).y;
}

Frame Frame::shortColumns(const Shape& shape) {
  const Shape trimmed = shape.trimmed();
  return {shape, trimmed.height() <= trimmed.width() ? Symmetry{} : Symmetry{1, false}};
}

Solution Frame::restored(const Solution& solution) const {
  Solution result = transformed(solution, back_, shape_.width(), shape_.height());
  for (Placement& placement : result) {
    placement.x += left_;
    placement.y += top_;
  }
  return result;
}

bool Delivery::takeBuilt(const Harvest& harvest, Solution solution) {
  const int width = frame_.shape().width(), height = frame_.shape().height();
  std::ranges::sort(solution);
  for (const Symmetry symmetry : harvest.smallestUnder)
    if (transformed(solution, symmetry, width, height) < solution) return true;
  for (const Symmetry image : harvest.images) {
    if (deliver_ && !deliver_(frame_.restored(transformed(solution, image, width, height))))
      return meter_.solutions(1) && meter_.stop();
    if (!meter_.solutions(1)) return false;
  }
  return true;
}
