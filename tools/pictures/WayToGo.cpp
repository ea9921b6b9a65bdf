#include "tools/pictures/Canvas.h"
#include "tools/pictures/Drawings.h"
#include "tools/pictures/PiecePaint.h"

namespace pictures {
namespace {

/// One of the two ways to lay the twelve pieces into 3 x 20.
const std::vector<std::string> kStrip{"UUXIIIIINNNFTWYYYYZV", "UXXXPPLNNFFFTWWYZZZV",
                                      "UUXPPPLLLLFTTTWWZVVV"};

}  // namespace

QImage wayToGo(double scale) {
  return painted(400, 200, scale, QColor(192, 192, 255), [scale](QPainter& painter) {
    QLinearGradient sky(0, 0, 0, 200);
    sky.setColorAt(0, QColor(0xa9, 0xa6, 0xf4));
    sky.setColorAt(0.5, QColor(0xcf, 0xcf, 0xff));
    sky.setColorAt(1, QColor(192, 192, 255));
    painter.fillRect(QRectF(0, 0, 400, 200), sky);
    PieceLook look;
    look.cell = 17;
    look.radius = 1.6;
    look.bevel = 1.6;
    look.outline = 0.9;
    look.shadow = 4;
    look.grain = 1.5;
    look.deviceScale = scale;
    painter.translate(30, 24);
    paintPieces(painter, piecesOf(kStrip), look);
  });
}

}  // namespace pictures
