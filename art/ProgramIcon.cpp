#include <QTextStream>
#include <algorithm>
#include <array>

#include "art/Canvas.h"
#include "art/Colour.h"
#include "art/Drawings.h"
#include "art/Outline.h"

namespace pictures {
namespace {

/// A letter Q of seven pieces.
const std::vector<std::string> kLetterQ{".PPWW.", "IPPPWW", "IL..NW", "IL..NN",
                                        "IL.VYN", "ILLVYN", ".VVVYY", "....Y."};
constexpr int kColumns = 6, kRows = 8;

/// Strong plain colours, as small pictures need them; one for each of the twelve types.
QColor iconColour(int type, double lighter) {
  static const std::array<Lab, 12> colours{lch(82, 62, 82),  lch(55, 40, 260), lch(52, 52, 272),
                                           lch(62, 44, 170), lch(50, 60, 30),  lch(58, 62, 32),
                                           lch(45, 45, 310), lch(62, 55, 60),  lch(65, 35, 225),
                                           lch(48, 50, 320), lch(70, 35, 0),   lch(70, 48, 128)};
  const Lab colour = colours[static_cast<std::size_t>(type)];
  return QColor::fromRgb(toRgb(colour + Lab{lighter, 0, 0}));
}

/// The contour and the seams, from the size on at which a cell has room for them.
constexpr int kFewestPixelsForSeams = 4, kFewestPixelsForBevels = 6;
const QColor kInk(0x1b, 0x1a, 0x3c);

QPen seam(double width) {
  return QPen(kInk, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void paintIconPiece(QPainter& painter, const Piece& piece, int cell) {
  const QPainterPath path = roundedPath(piece.cells, cell, cell * 0.16);
  QLinearGradient fill(0, path.boundingRect().top(), 0, path.boundingRect().bottom());
  fill.setColorAt(0, iconColour(piece.type, 7));
  fill.setColorAt(1, iconColour(piece.type, -6));
  painter.fillPath(path, fill);
  if (cell >= kFewestPixelsForBevels) {
    const double bevel = cell * 0.14;
    painter.fillPath(path.subtracted(path.translated(bevel, bevel)), QColor(255, 255, 255, 90));
    painter.fillPath(path.subtracted(path.translated(-bevel, -bevel)), QColor(0, 0, 0, 60));
  }
  if (cell >= kFewestPixelsForSeams) painter.strokePath(path, seam(cell * 0.09));
}

}  // namespace

QImage programIcon(int edge) {
  constexpr int kSmall = 32;  // up to here every pixel is worth more than a contour
  const int cell = (edge <= kSmall ? edge : edge - edge / 16) / kRows;
  return painted(edge, edge, 1, Qt::transparent, [&](QPainter& painter) {
    painter.translate((edge - kColumns * cell) / 2, (edge - kRows * cell) / 2);
    const std::vector<Piece> pieces = piecesOf(kLetterQ);
    Cells all;
    for (const Piece& piece : pieces) all.insert(all.end(), piece.cells.begin(), piece.cells.end());
    if (edge > kSmall)
      painter.strokePath(roundedPath(all, cell, cell * 0.16), seam(std::max(2.0, cell * 0.27)));
    for (const Piece& piece : pieces) paintIconPiece(painter, piece, cell);
  });
}

QByteArray programIconSvg() {
  QByteArray text;
  QTextStream out(&text);
  constexpr int kCell = 15, kEdge = 128;
  const int left = (kEdge - kColumns * kCell) / 2, top = (kEdge - kRows * kCell) / 2;
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"128\" height=\"128\" "
         "viewBox=\"0 0 128 128\">\n  <title>Quinzolith</title>\n"
         "  <g stroke=\"#1b1a3c\" stroke-width=\"2.5\" stroke-linejoin=\"round\">\n";
  for (const Piece& piece : piecesOf(kLetterQ)) {
    out << "    <path fill=\"" << iconColour(piece.type, 0).name() << "\" d=\"";
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
