#include "art/Outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "model/PENTO.h"

namespace pictures {
namespace {

/// One unit side of the boundary, walked with the inside on the right: from a lattice point in one
/// of the directions right, down, left, up.
struct Side {
  int x, y, direction;
  auto operator<=>(const Side&) const = default;
};
constexpr std::array<QPoint, 4> kSteps{QPoint{1, 0}, QPoint{0, 1}, QPoint{-1, 0}, QPoint{0, -1}};

std::set<Side> boundarySides(const Cells& cells) {
  std::set<std::pair<int, int>> inside;
  for (const QPoint& cell : cells) inside.insert({cell.x(), cell.y()});
  std::set<Side> sides;
  for (const auto& [x, y] : inside) {
    if (!inside.contains({x, y - 1})) sides.insert({x, y, 0});
    if (!inside.contains({x + 1, y})) sides.insert({x + 1, y, 1});
    if (!inside.contains({x, y + 1})) sides.insert({x + 1, y + 1, 2});
    if (!inside.contains({x - 1, y})) sides.insert({x, y + 1, 3});
  }
  return sides;
}

QPointF towards(const QPointF& from, const QPointF& to, double distance) {
  const QPointF way = to - from;
  return from + way * (distance / std::hypot(way.x(), way.y()));
}

}  // namespace

Cells cellsOf(const std::vector<std::string>& rows, char mark) {
  Cells cells;
  for (std::size_t y = 0; y < rows.size(); ++y)
    for (std::size_t x = 0; x < rows[y].size(); ++x)
      if (rows[y][x] == mark) cells.emplace_back(static_cast<int>(x), static_cast<int>(y));
  return cells;
}

std::vector<Piece> piecesOf(const std::vector<std::string>& rows) {
  std::vector<Piece> pieces;
  for (int type = 0; type < PENTO::kTypes; ++type) {
    Cells cells = cellsOf(rows, pentominoLetter(type));
    if (!cells.empty()) pieces.push_back({type, std::move(cells)});
  }
  return pieces;
}

Piece basePiece(int type) {
  PENTO pento;
  pento.PentoType(static_cast<std::int16_t>(type));
  Piece piece{type, {}};
  for (int i = 0; i < PENTO::kCells; ++i) piece.cells.emplace_back(pento.GridX(i), pento.GridY(i));
  return piece;
}

std::vector<QPolygonF> outlines(const Cells& cells) {
  std::set<Side> sides = boundarySides(cells);
  std::vector<QPolygonF> polygons;
  while (!sides.empty()) {
    QPolygonF polygon;
    Side side = *sides.begin();
    // Turning right first keeps cells apart that meet at a corner only.
    for (int came = -1; sides.erase(side) > 0;) {
      if (side.direction != came) polygon << QPointF(side.x, side.y);
      came = side.direction;
      const QPoint end = QPoint(side.x, side.y) + kSteps[static_cast<std::size_t>(side.direction)];
      for (const int turn : {1, 0, 3}) {
        side = {end.x(), end.y(), (came + turn) % 4};
        if (sides.contains(side)) break;
      }
    }
    polygons.push_back(polygon);
  }
  return polygons;
}

QPainterPath roundedPath(const Cells& cells, double cell, double radius) {
  QPainterPath path;
  for (const QPolygonF& polygon : outlines(cells)) {
    const qsizetype n = polygon.size();
    for (qsizetype i = 0; i < n; ++i) {
      const QPointF before = polygon[(i + n - 1) % n] * cell, corner = polygon[i] * cell,
                    after = polygon[(i + 1) % n] * cell;
      const QPointF in = towards(corner, before, radius), out = towards(corner, after, radius);
      if (i == 0) {
        path.moveTo(in);
      } else {
        path.lineTo(in);
      }
      path.quadTo(corner, out);
    }
    path.closeSubpath();
  }
  return path;
}

QRect bounds(const Cells& cells) {
  QRect box;
  for (const QPoint& cell : cells) box |= QRect(cell, QSize(1, 1));
  return box;
}

}  // namespace pictures
