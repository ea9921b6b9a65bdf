#include "drawing/FloatingCover.h"

#include "drawing/TextureAtlas.h"

FloatingCover::FloatingCover(const PENTO* piece, int tile, const DirtyRectangle& area)
    : tile_(tile) {
  if (!piece || !TextureAtlas::contains(piece->PentoType())) return;
  left_ = piece->X() - area.left;
  top_ = piece->Y() - area.top;
  for (int i = 0; i < PENTO::kCells; ++i)
    squares_ |= 1U << (piece->GridY(i) * kSide + piece->GridX(i));
}
