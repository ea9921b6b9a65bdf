#include <algorithm>

#include "tools/pictures/Canvas.h"
#include "tools/pictures/Color.h"
#include "tools/pictures/Drawings.h"
#include "tools/pictures/PuzzleIcons.h"
#include "tools/pictures/Shape.h"

namespace pictures {
namespace {

constexpr QRgb kMask = qRgb(192, 192, 192);
constexpr int kEdge = 32;

Cells shapeOf(const std::string& iconKey, const std::filesystem::path& puzzles) {
  const auto& entries = iconEntries();
  const auto entry = std::find_if(entries.begin(), entries.end(),
                                  [&](const IconEntry& e) { return e.icon == iconKey; });
  if (entry->puzzle.empty()) return cellsOf({"..##", ".##.", "..#."}, '#');
  if (!std::filesystem::exists(puzzles / (entry->puzzle + ".txt")))
    return cellsOf({"..#..", ".###.", ".###.", ".###.", "#####", "##.##"}, '#');
  return cellsOf(readDrawing(puzzles / (entry->puzzle + ".txt")), '#');
}

}  // namespace

QImage puzzleIcon(const std::string& iconKey, const std::filesystem::path& puzzles, int scale) {
  const Cells cells = shapeOf(iconKey, puzzles);
  const QRect box = bounds(cells);
  const int edge = kEdge * scale;
  QImage picture(edge, edge, QImage::Format_RGB32);
  picture.fill(kMask);
  const int cell = std::min(7 * scale, (edge - 2 * scale) / std::max(box.width(), box.height()));
  const QPoint origin = QPoint(edge - cell * box.width(), edge - cell * box.height()) / 2;
  QPainter painter(&picture);
  for (const QPoint& c : cells) {
    const QRect square(origin + (c - box.topLeft()) * cell, QSize(cell, cell));
    painter.fillRect(square, QColor::fromRgb(toRgb(lch(50, 40, 270))));
  }
  return picture;
}

}  // namespace pictures
