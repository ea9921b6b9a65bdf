#include "art/Canvas.h"
#include "art/Drawings.h"

namespace pictures {

QImage arrow(int quarterTurns, double scale) {
  return painted(32, 32, scale, Qt::transparent, [&](QPainter& painter) {
    painter.translate(16, 16);
    painter.rotate(90 * quarterTurns);
    painter.translate(-16, -16);
    QPolygonF shape;
    shape << QPointF(16, 3.5) << QPointF(28, 16) << QPointF(21, 16) << QPointF(21, 28)
          << QPointF(11, 28) << QPointF(11, 16) << QPointF(4, 16);
    QPainterPath path;
    path.addPolygon(shape);
    path.closeSubpath();
    QLinearGradient fill(0, 3, 0, 29);
    fill.setColorAt(0, QColor(0x6f, 0x86, 0xe0));
    fill.setColorAt(1, QColor(0x35, 0x48, 0xa6));
    painter.strokePath(
        path, QPen(QColor(0x1c, 0x25, 0x5c), 3.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, fill);
    painter.strokePath(path, QPen(QColor(255, 255, 255, 110), 0.9));
  });
}

QImage trash(double scale) {
  return painted(32, 32, scale, Qt::transparent, [](QPainter& painter) {
    const QPen line(QColor(0x2b, 0x30, 0x3a), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    QLinearGradient steel(6, 0, 26, 0);
    steel.setColorAt(0, QColor(0x9a, 0xa4, 0xb4));
    steel.setColorAt(0.35, QColor(0xe6, 0xea, 0xf0));
    steel.setColorAt(1, QColor(0x6c, 0x76, 0x88));
    QPainterPath body;
    body.moveTo(7.5, 10.5);
    body.lineTo(9.3, 27);
    body.quadTo(9.5, 28.8, 11.4, 28.8);
    body.lineTo(20.6, 28.8);
    body.quadTo(22.5, 28.8, 22.7, 27);
    body.lineTo(24.5, 10.5);
    body.closeSubpath();
    painter.setPen(line);
    painter.setBrush(steel);
    painter.drawPath(body);
    painter.drawRoundedRect(QRectF(4.8, 6.4, 22.4, 4.2), 1.6, 1.6);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(12, 3, 8, 3.4), 1.4, 1.4);
    for (const double x : {12.4, 16.0, 19.6})
      painter.drawLine(QPointF(x, 14), QPointF(x + (16 - x) * 0.12, 25));
  });
}

}  // namespace pictures
