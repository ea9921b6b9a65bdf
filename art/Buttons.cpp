#include <cmath>

#include "art/Canvas.h"
#include "art/Drawings.h"
#include "art/PiecePaint.h"

namespace pictures {

QImage pieceButton(int type, double scale) {
  // The widest piece is 5 cells wide, the tallest 3 high; 5 pixels are left free for the bevel.
  constexpr double kCell = 12;
  const double cell = std::floor(kCell * scale) / scale;
  const Piece piece = basePiece(type);
  const QRect box = bounds(piece.cells);
  return painted(73, 48, scale, Qt::transparent, [&](QPainter& painter) {
    const auto whole = [scale](double x) { return std::floor(x * scale) / scale; };
    painter.translate(whole((73 - cell * box.width()) / 2), whole((48 - cell * box.height()) / 2));
    PieceLook look;
    look.cell = cell;
    look.radius = 1;
    look.bevel = 2.2;
    look.outline = 2;  // half of it lies outside, so its edges meet whole pixels
    look.shadow = 1.2;
    look.deviceScale = scale;
    paintPieces(painter, {piece}, look);
  });
}

}  // namespace pictures
