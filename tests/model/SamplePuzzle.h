#pragma once

#include <stdexcept>

#include "model/PENTOGRID.h"

/// Three pieces on an editor's board, turned and mirrored: the puzzle that most tests save.
inline void laySample(PENTOGRID& grid) {
  const auto lay = [&grid](int type, int turns, int mirrorings, int x, int y) {
    const auto piece = std::make_shared<PENTO>();
    piece->PentoType(static_cast<std::int16_t>(type));
    for (int i = 0; i < turns; ++i) piece->Rotate();
    for (int i = 0; i < mirrorings; ++i) piece->Flip();
    return grid.AddPento(piece, x, y);
  };
  if (!lay(0, 3, 1, 2, 3) || !lay(7, 2, 0, 5, 3) || !lay(9, 1, 1, 9, 8))
    throw std::logic_error("The sample does not fit.");
}
