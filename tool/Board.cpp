#include "tool/Board.h"

#include <QPainter>
#include <stdexcept>

#include "drawing/AtlasLayout.h"

namespace puzzle {

namespace {

constexpr int kAtlasColumns = AtlasLayout::kColumns;

void drawTexture(QPainter& painter, const QImage& atlas, const PENTOGRID& grid, int x, int y,
                 int tile) {
  const PentoRef piece = grid.PentoAt(x, y);
  const int texture = piece ? piece->PentoType() : AtlasLayout::kEmptyCell;
  painter.drawImage(
      QPoint(x * tile, y * tile), atlas,
      QRect(texture % kAtlasColumns * tile, texture / kAtlasColumns * tile, tile, tile));
}

/// A line inside the cell on each side whose neighbour in the grid belongs to something else.
void drawOutline(QPainter& painter, const PENTOGRID& grid, int x, int y, int tile) {
  const auto differs = [&](int column, int row) {
    return column >= 0 && row >= 0 && column < grid.Width() && row < grid.Height() &&
           grid.PentoID(column, row) != grid.PentoID(x, y);
  };
  const int left = x * tile, top = y * tile;
  if (differs(x, y - 1)) painter.fillRect(left, top, tile, 1, Qt::white);
  if (differs(x - 1, y)) painter.fillRect(left, top, 1, tile, Qt::white);
  if (differs(x, y + 1)) painter.fillRect(left, top + tile - 1, tile, 1, Qt::white);
  if (differs(x + 1, y)) painter.fillRect(left + tile - 1, top, 1, tile, Qt::white);
}

}  // namespace

QImage renderBoard(const PENTOGRID& grid, int tile, const std::filesystem::path& textures) {
  QImage atlas(QString::fromStdString(textures.string()));
  if (atlas.isNull())
    throw std::runtime_error(textures.string() + ": The texture picture cannot be read.");
  atlas = atlas.scaled(kAtlasColumns * tile, kAtlasColumns * tile, Qt::IgnoreAspectRatio,
                       Qt::FastTransformation);
  QImage image(grid.Width() * tile, grid.Height() * tile, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  for (int x = 0; x < grid.Width(); ++x)
    for (int y = 0; y < grid.Height(); ++y) {
      if (grid.IsBackground(x, y)) continue;
      drawTexture(painter, atlas, grid, x, y, tile);
      drawOutline(painter, grid, x, y, tile);
    }
  return image;
}

}  // namespace puzzle
