#pragma once

#include <memory>
#include <vector>

#include "model/PENTOGRID.h"

/// A piece turned and then mirrored. The type may be a number that is none.
inline PentoRef makePiece(int type, int turns = 0, int mirrorings = 0) {
  auto piece = std::make_shared<PENTO>();
  piece->PentoType(static_cast<std::int16_t>(type));
  for (int i = 0; i < turns; ++i) piece->Rotate();
  for (int i = 0; i < mirrorings; ++i) piece->Flip();
  return piece;
}

/// A grid as the windows make it: a background ring round an empty inner area.
inline PENTOGRID ringedGrid(int width, int height) {
  PENTOGRID grid;
  grid.SetGridSize(static_cast<std::int16_t>(width), static_cast<std::int16_t>(height));
  for (int x = 0; x < width; ++x)
    for (int y = 0; y < height; ++y)
      if (x == 0 || y == 0 || x == width - 1 || y == height - 1) grid.SetGridBackground(x, y);
  return grid;
}

/// What PentoID says of each cell, column by column.
inline std::vector<std::int32_t> cellsOf(const PENTOGRID& grid) {
  std::vector<std::int32_t> cells;
  for (int x = 0; x < grid.Width(); ++x)
    for (int y = 0; y < grid.Height(); ++y) cells.push_back(grid.PentoID(x, y));
  return cells;
}
