#include "board/PieceOutline.h"

#include <QPainterPath>

QPolygonF outlineOf(const PENTO& piece) {
  QPainterPath cells;
  for (int i = 0; i < PENTO::kCells; ++i) {
    QPainterPath cell;
    cell.addRect(piece.GridX(i), piece.GridY(i), 1, 1);
    cells = cells.united(cell);
  }
  return cells.simplified().toFillPolygon();
}
