#include "tools/pictures/Canvas.h"
#include "tools/pictures/Drawings.h"
#include "tools/pictures/PiecePaint.h"

namespace pictures {
namespace {

/// A letter Q of eleven pieces; the twelfth lies below it.
const std::vector<std::string> kLetterQ{".FFYYYY.", "LLFFYUUU", "ILF..UPU", "IL....PP", "IL....PP",
                                        "IN..TVVV", "IN..TTTV", ".NNZTWWV", "..NZZZWW", ".....Z.W"};

}  // namespace

QImage splash(double scale) {
  return painted(166, 230, scale, QColor(0x1a, 0x16, 0x3a), [scale](QPainter& painter) {
    QRadialGradient glow(QPointF(74, 84), 170);
    glow.setColorAt(0, QColor(0x9d, 0x95, 0xe6));
    glow.setColorAt(0.45, QColor(0x4d, 0x43, 0x9c));
    glow.setColorAt(1, QColor(0x15, 0x10, 0x33));
    painter.fillRect(QRectF(0, 0, 166, 230), glow);
    PieceLook look;
    look.cell = 17;
    look.radius = 1.6;
    look.bevel = 1.6;
    look.outline = 0.9;
    look.shadow = 5;
    look.grain = 1.5;
    look.deviceScale = scale;
    painter.translate(15, 12);
    paintPieces(painter, piecesOf(kLetterQ), look);
    painter.translate(20, 183);
    painter.rotate(-11);
    look.shadow = 3;
    paintPieces(painter, {basePiece(8)}, look);
  });
}

}  // namespace pictures
