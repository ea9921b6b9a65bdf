#include "art/Canvas.h"
#include "art/Drawings.h"

namespace pictures {
namespace {

QPainterPath finger(double left, double top, double width, double bottom) {
  QPainterPath path;
  path.addRoundedRect(QRectF(left, top, width, bottom - top), width / 2, width / 2);
  return path;
}

QPainterPath thumb(const QPointF& tip, const QPointF& root) {
  QPainterPath line(tip);
  line.lineTo(root);
  QPainterPathStroker stroker;
  stroker.setWidth(4.4);
  stroker.setCapStyle(Qt::RoundCap);
  return stroker.createStroke(line);
}

/// White skin with a dark contour reads on any ground.
void paintHand(QPainter& painter, const QPainterPath& hand, const std::vector<QLineF>& creases) {
  const QColor ink(0x16, 0x18, 0x30);
  painter.strokePath(hand, QPen(ink, 2.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QLinearGradient skin(0, 4, 0, 30);
  skin.setColorAt(0, Qt::white);
  skin.setColorAt(1, QColor(0xdc, 0xdf, 0xf2));
  painter.fillPath(hand, skin);
  painter.setPen(QPen(ink, 1.1, Qt::SolidLine, Qt::RoundCap));
  for (const QLineF& crease : creases) painter.drawLine(crease);
}

}  // namespace

QImage handCursor(double scale) {
  return painted(32, 32, scale, Qt::transparent, [](QPainter& painter) {
    QPainterPath hand;
    hand.addRoundedRect(QRectF(8, 14, 17, 14.5), 5.5, 5.5);
    hand = hand.united(finger(8, 6.4, 4.2, 20)).united(finger(12.3, 3.6, 4.2, 20));
    hand = hand.united(finger(16.6, 4.2, 4.2, 20)).united(finger(20.9, 7.4, 4.1, 22));
    hand = hand.united(thumb(QPointF(4.6, 15.6), QPointF(11, 23)));
    paintHand(
        painter, hand,
        {QLineF(12.25, 9, 12.25, 15), QLineF(16.55, 7, 16.55, 15), QLineF(20.85, 9, 20.85, 15)});
  });
}

QImage pointerCursor(double scale) {
  return painted(32, 32, scale, Qt::transparent, [](QPainter& painter) {
    QPainterPath hand;
    hand.addRoundedRect(QRectF(9, 15, 16.8, 12.5), 5, 5);
    hand.addRoundedRect(QRectF(11.5, 22, 12, 8.4), 2, 2);
    hand.setFillRule(Qt::WindingFill);
    hand = hand.simplified().united(finger(9, 2, 4.4, 20)).united(finger(13.2, 11.6, 4.3, 22));
    hand = hand.united(finger(17.4, 12.2, 4.3, 22)).united(finger(21.6, 13.4, 4.2, 23));
    hand = hand.united(thumb(QPointF(5, 17.4), QPointF(11.5, 24)));
    paintHand(painter, hand,
              {QLineF(13.3, 14, 13.3, 18.6), QLineF(17.5, 14.4, 17.5, 18.6),
               QLineF(21.6, 15.4, 21.6, 18.8)});
  });
}

QImage clearCursor(double scale) {
  return painted(32, 32, scale, Qt::transparent, [](QPainter&) {});
}

}  // namespace pictures
