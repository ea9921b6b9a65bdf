#include <QTextStream>
#include <algorithm>
#include <array>

#include "tools/pictures/Canvas.h"
#include "tools/pictures/Color.h"
#include "tools/pictures/Drawings.h"
#include "tools/pictures/Shape.h"

namespace pictures {
namespace {

/// A letter Q of six pieces.
const std::vector<std::string> kLetterQ{".LLLL.", "PLYYYY", "PP..YT", "PP.TTT",
                                        "NNNWWT", "..NNWW", ".....W"};
constexpr int kColumns = 6, kRows = 7;

/// Strong plain colours, as small pictures need them; one for each of the twelve types.
QColor iconColor(int type, double lighter) {
  static const std::array<Lab, 12> colors{lch(82, 62, 82),  lch(55, 40, 260), lch(52, 52, 272),
                                          lch(62, 44, 170), lch(50, 60, 30),  lch(58, 62, 32),
                                          lch(45, 45, 310), lch(62, 55, 60),  lch(65, 35, 225),
                                          lch(48, 50, 320), lch(70, 35, 0),   lch(70, 48, 128)};
  const Lab color = colors[static_cast<std::size_t>(type)];
  return QColor::fromRgb(toRgb(color + Lab{lighter, 0, 0}));
}

QPainterPath scaled(const Cells& cells, double cell, const QPointF& origin, double radius) {
  return roundedPath(cells, cell, radius).translated(origin);
}

}  // namespace

QImage programIcon(int edge) {
  const int cell = (edge - (edge >= 32 ? 2 : 0)) / kRows;
  const QPointF origin((edge - kColumns * cell) / 2, (edge - kRows * cell) / 2);
  const double line = std::max(0.0, cell * 0.09), radius = cell * 0.16;
  return painted(edge, edge, 1, Qt::transparent, [&](QPainter& painter) {
    const std::vector<Piece> pieces = piecesOf(kLetterQ);
    Cells all;
    for (const Piece& piece : pieces) all.insert(all.end(), piece.cells.begin(), piece.cells.end());
    const QColor ink(0x1b, 0x1a, 0x3c);
    if (cell >= 4)
      painter.strokePath(
          scaled(all, cell, origin, radius),
          QPen(ink, std::max(2.0, 3 * line), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const Piece& piece : pieces) {
      const QPainterPath path = scaled(piece.cells, cell, origin, radius);
      QLinearGradient fill(0, path.boundingRect().top(), 0, path.boundingRect().bottom());
      fill.setColorAt(0, iconColor(piece.type, 7));
      fill.setColorAt(1, iconColor(piece.type, -6));
      painter.fillPath(path, fill);
      const double bevel = cell * 0.12;
      if (cell >= 6) {
        painter.fillPath(path.subtracted(path.translated(bevel, bevel)), QColor(255, 255, 255, 90));
        painter.fillPath(path.subtracted(path.translated(-bevel, -bevel)), QColor(0, 0, 0, 60));
      }
      if (cell >= 4) painter.strokePath(path, QPen(ink, line));
    }
  });
}

QByteArray programIconSvg() {
  QByteArray text;
  QTextStream out(&text);
  constexpr int kCell = 18, kEdge = 128;
  const int left = (kEdge - kColumns * kCell) / 2, top = (kEdge - kRows * kCell) / 2;
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"128\" height=\"128\" "
         "viewBox=\"0 0 128 128\">\n  <title>Quinzolith</title>\n"
         "  <g stroke=\"#1b1a3c\" stroke-width=\"2.5\" stroke-linejoin=\"round\">\n";
  for (const Piece& piece : piecesOf(kLetterQ)) {
    out << "    <path fill=\"" << iconColor(piece.type, 0).name() << "\" d=\"";
    for (const QPolygonF& polygon : outlines(piece.cells)) {
      char command = 'M';
      for (const QPointF& point : polygon) {
        out << command << left + kCell * point.x() << ' ' << top + kCell * point.y();
        command = 'L';
      }
      out << 'Z';
    }
    out << "\"/>\n";
  }
  out << "  </g>\n</svg>\n";
  out.flush();
  return text;
}

}  // namespace pictures
