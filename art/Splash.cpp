#include "art/Canvas.h"
#include "art/Drawings.h"
#include "art/PiecePaint.h"

namespace pictures {
namespace {

/// A letter Q of eleven pieces; the twelfth lies below it.
const std::vector<std::string> kLetterQ{"..PPWW..", ".NPPPWW.", "NN....WY", "NI....YY",
                                        "NI....VY", "LI....VY", "LI..VVVZ", "LIT.FZZZ",
                                        "LLTFFZUU", ".TTTFFU.", "......UU"};
constexpr int kLoosePiece = 8;

void paintGround(QPainter& painter) {
  QRadialGradient glow(QPointF(84, 84), 165);
  glow.setColorAt(0, QColor(0xb9, 0xb2, 0xf6));
  glow.setColorAt(0.40, QColor(0x5c, 0x51, 0xb0));
  glow.setColorAt(1, QColor(0x17, 0x12, 0x38));
  painter.fillRect(QRectF(0, 0, 166, 230), glow);
}

}  // namespace

QImage splash(double scale) {
  return painted(166, 230, scale, QColor(0x1a, 0x16, 0x3a), [scale](QPainter& painter) {
    paintGround(painter);
    const PieceLook look{.cell = 15,
                         .radius = 1.6,
                         .bevel = 1.6,
                         .outline = 1,
                         .shadow = 5,
                         .grain = 1.5,
                         .deviceScale = scale};
    // Half a pixel lets the outlines cover whole ones.
    painter.translate(23.5, 12.5);
    paintPieces(painter, piecesOf(kLetterQ), look);
    painter.translate(-2, 175);
    painter.rotate(-14);
    paintPieces(painter, {basePiece(kLoosePiece)}, look);
  });
}

}  // namespace pictures
