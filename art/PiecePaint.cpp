#include "art/PiecePaint.h"

#include <cmath>

#include "art/Materials.h"

namespace pictures {
namespace {

QBrush materialBrush(int type, const PieceLook& look) {
  const double edge = look.cell * look.grain;
  const int pixels = std::max(1, static_cast<int>(std::lround(edge * look.deviceScale)));
  QBrush brush(material(type).image(pixels));
  brush.setTransform(QTransform::fromScale(edge / pixels, edge / pixels));
  return brush;
}

/// Light on the edges towards the top left, shade on the opposite ones.
void paintBevel(QPainter& painter, const QPainterPath& path, double width) {
  if (width <= 0) return;
  const QPainterPath lit = path.subtracted(path.translated(width, width));
  const QPainterPath shaded = path.subtracted(path.translated(-width, -width));
  painter.setPen(Qt::NoPen);
  painter.fillPath(lit, QColor(255, 255, 255, 80));
  painter.fillPath(shaded, QColor(0, 0, 0, 90));
}

}  // namespace

void paintShadow(QPainter& painter, const QPainterPath& path, double length) {
  if (length <= 0) return;
  constexpr int kLayers = 6;
  for (int i = kLayers; i >= 1; --i) {
    const double spread = length * 0.9 * i / kLayers;
    QPen pen(QColor(10, 6, 30, 22), 2 * spread, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPainterPath cast = path.translated(length * 0.7, length);
    painter.strokePath(cast, pen);
    painter.fillPath(cast, QColor(10, 6, 30, 22));
  }
}

void paintPiece(QPainter& painter, const Piece& piece, const PieceLook& look) {
  const QPainterPath path = roundedPath(piece.cells, look.cell, look.radius);
  painter.fillPath(path, materialBrush(piece.type, look));
  paintBevel(painter, path, look.bevel);
  if (look.outline > 0)
    painter.strokePath(path,
                       QPen(Qt::white, look.outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void paintPieces(QPainter& painter, const std::vector<Piece>& pieces, const PieceLook& look) {
  if (look.shadow > 0) {
    Cells all;
    for (const Piece& piece : pieces) all.insert(all.end(), piece.cells.begin(), piece.cells.end());
    paintShadow(painter, roundedPath(all, look.cell, look.radius), look.shadow);
  }
  for (const Piece& piece : pieces) paintPiece(painter, piece, look);
}

}  // namespace pictures
