#include "drawing/BoardPicture.h"

#include <QPainter>

#include "drawing/Composition.h"

QImage boardPicture(const PENTOGRID& grid, const TextureAtlas& textures) {
  const int tile = textures.tileWidth();
  Surface surface;
  surface.resize(grid.Width() * tile, grid.Height() * tile);
  Composition().draw({&grid, &textures}, {0, 0, surface.width(), surface.height()}, surface);
  QImage picture = surface.view().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  for (int x = 0; x < grid.Width(); ++x)
    for (int y = 0; y < grid.Height(); ++y)
      if (grid.IsBackground(x, y)) painter.eraseRect(x * tile, y * tile, tile, tile);
  return picture;
}
