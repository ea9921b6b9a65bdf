#include "solver/Shape.h"

#include <algorithm>
#include <stdexcept>

namespace solver {

Cell Symmetry::apply(Cell cell, int width, int height) const {
  for (int i = 0; i < turns; ++i) {
    cell = {height - 1 - cell.y, cell.x};
    std::swap(width, height);
  }
  if (mirrored) cell.x = width - 1 - cell.x;
  return cell;
}

Symmetry Symmetry::inverse() const {
  return mirrored ? *this : Symmetry{(4 - turns) % 4, false};
}

Shape::Shape(int width, int height) : width_(width), height_(height) {
  if (width < 0 || height < 0) throw std::out_of_range("A shape cannot have a negative size.");
  cells_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

Shape Shape::rectangle(int width, int height) {
  Shape shape(width, height);
  shape.cells_.flip();
  return shape;
}

int Shape::area() const {
  return static_cast<int>(std::count(cells_.begin(), cells_.end(), true));
}

bool Shape::contains(Cell cell) const {
  return insideBox(cell) && cells_[index(cell)];
}

void Shape::set(Cell cell, bool inside) {
  if (!insideBox(cell)) throw std::out_of_range("This cell lies outside the shape's box.");
  cells_[index(cell)] = inside;
}

std::vector<Cell> Shape::cells() const {
  std::vector<Cell> result;
  for (int x = 0; x < width_; ++x)
    for (int y = 0; y < height_; ++y)
      if (contains({x, y})) result.push_back({x, y});
  return result;
}

Shape Shape::transformed(Symmetry symmetry) const {
  const bool sideways = symmetry.turns % 2 != 0;
  Shape result(sideways ? height_ : width_, sideways ? width_ : height_);
  for (const Cell cell : cells()) result.set(symmetry.apply(cell, width_, height_));
  return result;
}

Shape Shape::trimmed() const {
  const std::vector<Cell> all = cells();
  if (all.empty()) return {};
  const auto [left, right] = std::ranges::minmax(all, {}, &Cell::x);
  const auto [top, bottom] = std::ranges::minmax(all, {}, &Cell::y);
  Shape result(right.x - left.x + 1, bottom.y - top.y + 1);
  for (const Cell cell : all) result.set({cell.x - left.x, cell.y - top.y});
  return result;
}

std::vector<Symmetry> symmetriesOf(const Shape& shape) {
  std::vector<Symmetry> result;
  std::ranges::copy_if(kSymmetries, std::back_inserter(result),
                       [&](Symmetry symmetry) { return shape.transformed(symmetry) == shape; });
  return result;
}

}  // namespace solver
