#pragma once

#include <gtest/gtest.h>

#include <map>

#include "model/PENTOGRID.h"

/// What holds of a grid between any two operations: every placed piece lies on exactly the cells
/// that hold its id, and no other cell holds an id.
inline void expectValidGrid(const PENTOGRID& grid) {
  std::map<std::int32_t, int> cellsOfId;
  for (int x = 0; x < grid.Width(); ++x) {
    for (int y = 0; y < grid.Height(); ++y) {
      const std::int32_t id = grid.PentoID(x, y);
      const bool told = grid.IsEmpty(x, y) == (id == 0) && grid.IsBackground(x, y) == (id == -1);
      if (id < PENTOGRID::kBackground || !told) FAIL() << id << " at " << x << ", " << y;
      if (id > 0) ++cellsOfId[id];
    }
  }
  ASSERT_EQ(cellsOfId.size(), grid.PentoCollection().Count());
  for (const auto& [id, piece] : grid.PentoCollection()) {
    const bool hasType = piece->PentoType() >= 0 && piece->PentoType() < PENTO::kTypes;
    ASSERT_EQ(cellsOfId[id], hasType ? PENTO::kCells : 1);
    for (int i = 0; i < PENTO::kCells; ++i) {
      const int x = piece->X() + piece->GridX(i), y = piece->Y() + piece->GridY(i);
      ASSERT_EQ(grid.PentoID(x, y), id);
      ASSERT_EQ(grid.PentoAt(x, y), piece);
    }
  }
}
