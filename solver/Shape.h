#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <vector>

namespace solver {

/// One cell of a shape; (0, 0) is the top left, x grows to the right, y downward.
struct Cell {
  int x = 0, y = 0;
  auto operator<=>(const Cell&) const = default;
};

/// One of the eight ways to lay a rectangle onto a rectangle: `turns` clockwise quarter turns,
/// then, when `mirrored`, a left-right mirroring. The order is that of the counters of a PENTO.
struct Symmetry {
  int turns = 0;
  bool mirrored = false;
  bool operator==(const Symmetry&) const = default;

  /// Where a cell of a box of `width` x `height` cells comes to lie.
  Cell apply(Cell cell, int width, int height) const;
  Symmetry inverse() const;
};

/// All eight, the identity first.
inline constexpr std::array<Symmetry, 8> kSymmetries{
    {{0, false}, {1, false}, {2, false}, {3, false}, {0, true}, {1, true}, {2, true}, {3, true}}};

/// The cells that pieces are to cover: any set of cells of a box, holes and several parts included.
class Shape {
 public:
  Shape() = default;
  /// A box without any cell of the shape.
  Shape(int width, int height);
  static Shape rectangle(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }
  int area() const;  ///< number of cells
  bool contains(Cell cell) const;
  /// Errors: std::out_of_range outside the box.
  void set(Cell cell, bool inside = true);
  std::vector<Cell> cells() const;  ///< column by column

  Shape transformed(Symmetry symmetry) const;
  /// The same cells in the smallest box that holds them.
  Shape trimmed() const;
  bool operator==(const Shape&) const = default;

 private:
  bool insideBox(Cell cell) const {
    return cell.x >= 0 && cell.x < width_ && cell.y >= 0 && cell.y < height_;
  }
  std::size_t index(Cell cell) const {
    return static_cast<std::size_t>(cell.x) * static_cast<std::size_t>(height_) +
           static_cast<std::size_t>(cell.y);
  }

  int width_ = 0, height_ = 0;
  std::vector<bool> cells_;
};

/// The symmetries that lay the shape onto itself when its box is laid onto itself; the identity
/// comes first. Trim the shape before asking.
std::vector<Symmetry> symmetriesOf(const Shape& shape);

}  // namespace solver
