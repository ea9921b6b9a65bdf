#include <QFontDatabase>
#include <QPainterPath>
#include <algorithm>

#include "drafts/Refusal.h"
#include "tool/Generator.h"

// The shapes of new puzzles.
namespace puzzle {

namespace {

using solver::Cell;
using solver::Shape;

int neighboursOf(const Shape& shape, Cell cell) {
  return shape.contains({cell.x - 1, cell.y}) + shape.contains({cell.x + 1, cell.y}) +
         shape.contains({cell.x, cell.y - 1}) + shape.contains({cell.x, cell.y + 1});
}

/// The box in which the style can reach the number of cells: an odd number needs cells on the axis,
/// and where both ways mirror, an even one wants cells on one axis only.
Shape boxFor(const Wanted& wanted) {
  const bool odd = wanted.pieces * PENTO::kCells % 2 != 0;
  const auto ofParity = [](int side, bool isOdd) {
    return (side % 2 != 0) == isOdd ? side : side - 1;
  };
  if (wanted.style == ShapeStyle::Mirror && odd)
    return {ofParity(wanted.width, true), wanted.height};
  if (wanted.style == ShapeStyle::Both)
    return {ofParity(wanted.width, odd), ofParity(wanted.height, true)};
  return {wanted.width, wanted.height};
}

/// A cell and its mirror images.
std::vector<Cell> orbitOf(const Shape& box, Cell cell, ShapeStyle style) {
  std::vector<Cell> orbit{cell};
  const auto add = [&](Cell image) {
    if (std::ranges::find(orbit, image) == orbit.end()) orbit.push_back(image);
  };
  const int right = box.width() - 1 - cell.x, bottom = box.height() - 1 - cell.y;
  if (style == ShapeStyle::Mirror || style == ShapeStyle::Both) add({right, cell.y});
  if (style == ShapeStyle::Both) {
    add({cell.x, bottom});
    add({right, bottom});
  }
  return orbit;
}

/// The cells of the hole in the middle, one to four of them.
Shape holeIn(const Shape& box, std::mt19937_64& random) {
  Shape hole(box.width(), box.height());
  const int width = 1 + below(random, 2), height = 1 + below(random, 2);
  for (int x = 0; x < width; ++x)
    for (int y = 0; y < height; ++y)
      hole.set({(box.width() - width) / 2 + x, (box.height() - height) / 2 + y});
  return hole;
}

/// Whether no way leads from the hole to the edge of the box, not even by a corner.
bool isEnclosed(const Shape& shape, const Shape& hole) {
  Shape seen = hole;
  std::vector<Cell> open = hole.cells();
  while (!open.empty()) {
    const Cell cell = open.back();
    open.pop_back();
    for (int dx = -1; dx <= 1; ++dx)
      for (int dy = -1; dy <= 1; ++dy) {
        const Cell next{cell.x + dx, cell.y + dy};
        if (next.x < 0 || next.y < 0 || next.x >= shape.width() || next.y >= shape.height())
          return false;
        if (shape.contains(next) || seen.contains(next)) continue;
        seen.set(next);
        open.push_back(next);
      }
  }
  return true;
}

/// Adds cells that touch the shape, more often where they touch it twice, up to `cells`.
bool grow(Shape& shape, const Shape& hole, int cells, const Wanted& wanted,
          std::mt19937_64& random) {
  constexpr int kPatience = 100;
  const int middle = (shape.width() - 1) / 2;
  for (int tries = 0; shape.area() < cells && tries < kPatience * cells; ++tries) {
    const Cell cell{below(random, shape.width()), below(random, shape.height())};
    const bool starts = shape.area() == 0 && (hole.area() > 0 ? neighboursOf(hole, cell) > 0
                                              : wanted.style == ShapeStyle::Both
                                                  ? cell == Cell{middle, (shape.height() - 1) / 2}
                                                  : cell.x == middle);
    const int neighbours = neighboursOf(shape, cell);
    if (shape.contains(cell) || hole.contains(cell) || (!starts && neighbours == 0)) continue;
    if (neighbours == 1 && below(random, 3) != 0) continue;
    const std::vector<Cell> orbit = orbitOf(shape, cell, wanted.style);
    if (static_cast<int>(orbit.size()) > cells - shape.area()) continue;
    for (const Cell image : orbit) shape.set(image);
  }
  return shape.area() == cells;
}

/// The cells whose middles lie inside the glyph when it is `height` cells tall.
Shape rasterOf(const QPainterPath& glyph, int height) {
  const QRectF box = glyph.boundingRect();
  const double step = box.height() / height;
  const int width = std::max(1, static_cast<int>(box.width() / step + 0.5));
  Shape shape(width, height);
  for (int x = 0; x < width; ++x)
    for (int y = 0; y < height; ++y)
      if (glyph.contains(
              QPointF(box.left() + (x + 0.5) * box.width() / width, box.top() + (y + 0.5) * step)))
        shape.set({x, y});
  return shape;
}

}  // namespace

std::optional<Shape> randomShape(const Wanted& wanted, std::mt19937_64& random) {
  if (wanted.style == ShapeStyle::Glyph) return glyphShape(wanted, random);
  Shape shape = boxFor(wanted);
  const bool isHollow = wanted.style == ShapeStyle::Hole;
  const Shape hole = isHollow ? holeIn(shape, random) : Shape(shape.width(), shape.height());
  if (!grow(shape, hole, wanted.pieces * PENTO::kCells, wanted, random)) return std::nullopt;
  if (isHollow && !isEnclosed(shape, hole)) return std::nullopt;
  return shape.trimmed();
}

std::optional<Shape> glyphShape(const Wanted& wanted, std::mt19937_64& random) {
  constexpr std::string_view kGlyphs = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  constexpr int kMostAdded = 4, kLowest = 6;
  if (QFontDatabase::families().isEmpty())
    throw Refusal("No font is installed to take shapes from.");
  const char character =
      wanted.glyph != 0 ? wanted.glyph
                        : kGlyphs[static_cast<std::size_t>(below(random, int(kGlyphs.size())))];
  QFont font("DejaVu Sans");
  font.setBold(true);
  font.setPixelSize(200);
  QPainterPath glyph;
  glyph.addText(0, 0, font, QString(QChar::fromLatin1(character)));
  const int height = kLowest + below(random, std::max(1, wanted.height - kLowest + 1));
  Shape shape = rasterOf(glyph, std::min(height, wanted.height));
  const int missing = wanted.pieces * PENTO::kCells - shape.area();
  if (shape.area() == 0 || shape.width() > wanted.width || missing < 0 || missing > kMostAdded)
    return std::nullopt;
  const Shape noHole(shape.width(), shape.height());
  if (!grow(shape, noHole, shape.area() + missing, wanted, random)) return std::nullopt;
  return shape.trimmed();
}

}  // namespace puzzle
