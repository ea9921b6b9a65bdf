#include <map>
#include <string>

#include "art/Canvas.h"
#include "art/Drawings.h"

namespace pictures {
namespace {

QPen ink(double width, const QColor& colour = QColor(0x22, 0x26, 0x4a)) {
  return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QLinearGradient downward(const QColor& top, const QColor& bottom, double from = 2, double to = 30) {
  QLinearGradient gradient(0, from, 0, to);
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  return gradient;
}

QPainterPath polygon(const QPolygonF& corners) {
  QPainterPath path;
  path.addPolygon(corners);
  path.closeSubpath();
  return path;
}

void disc(QPainter& painter, const QColor& top, const QColor& bottom, const QColor& rim) {
  painter.setPen(ink(1.4, rim));
  painter.setBrush(downward(top, bottom));
  painter.drawEllipse(QRectF(2, 2, 28, 28));
  painter.setPen(Qt::NoPen);
  QPainterPath gloss;
  gloss.addEllipse(QRectF(5, 3.4, 22, 14));
  painter.fillPath(gloss, downward(QColor(255, 255, 255, 120), QColor(255, 255, 255, 0), 3, 17));
}

void play(QPainter& painter) {
  disc(painter, QColor(0x7f, 0xd1, 0x6b), QColor(0x1f, 0x86, 0x3b), QColor(0x0f, 0x4d, 0x22));
  const QPainterPath triangle = polygon({QPointF(12, 8.5), QPointF(24, 16), QPointF(12, 23.5)});
  painter.strokePath(triangle, ink(2.4, QColor(0x0f, 0x4d, 0x22)));
  painter.strokePath(triangle, ink(1.2, Qt::white));
  painter.fillPath(triangle, Qt::white);
}

void sheet(QPainter& painter) {
  painter.setPen(ink(1.4));
  painter.setBrush(downward(QColor(0xff, 0xff, 0xff), QColor(0xdd, 0xe2, 0xf4)));
  painter.drawRoundedRect(QRectF(3, 5, 21, 24.5), 2, 2);
  const QColor tone(0x8c, 0x9a, 0xd8);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tone);
  for (const QPoint& cell : {QPoint(1, 0), QPoint(2, 0), QPoint(0, 1), QPoint(1, 1), QPoint(1, 2)})
    painter.drawRect(QRectF(6.5 + 5 * cell.x(), 9.5 + 5 * cell.y(), 4.4, 4.4));
}

void edit(QPainter& painter) {
  sheet(painter);
  painter.save();
  painter.translate(12, 25);
  painter.rotate(-45);
  const QPainterPath wood = polygon({QPointF(0, 0), QPointF(5, -2.8), QPointF(5, 2.8)});
  const QRectF shaft(5, -2.8, 13, 5.6), ring(18, -2.8, 2, 5.6), rubber(20, -2.8, 3.6, 5.6);
  QPainterPath all = wood;
  all.addRect(shaft);
  all.addRect(ring);
  all.addRoundedRect(rubber, 1, 1);
  painter.strokePath(all, ink(2.6));
  painter.fillPath(wood, QColor(0xf2, 0xd3, 0xa2));
  painter.fillRect(shaft, downward(QColor(0xff, 0xd8, 0x4d), QColor(0xe0, 0x96, 0x12), -2.8, 2.8));
  painter.fillRect(ring, QColor(0xc9, 0xcf, 0xda));
  painter.fillRect(rubber, QColor(0xe8, 0x78, 0x84));
  painter.fillPath(polygon({QPointF(0, 0), QPointF(1.8, -1), QPointF(1.8, 1)}),
                   QColor(0x22, 0x26, 0x4a));
  painter.restore();
}

void visit(QPainter& painter) {
  disc(painter, QColor(0x8f, 0xcd, 0xf5), QColor(0x1d, 0x62, 0xb8), QColor(0x0f, 0x30, 0x66));
  QPainterPath world;
  world.addEllipse(QRectF(2.6, 2.6, 26.8, 26.8));
  painter.save();
  painter.setClipPath(world);
  QPainterPath land;
  land.moveTo(6, 8);
  land.cubicTo(10, 3, 17, 5, 17, 8);
  land.cubicTo(17, 11, 12, 11, 13, 14);
  land.cubicTo(14, 17, 17, 17, 16, 21);
  land.cubicTo(15, 25, 12, 27, 11, 24);
  land.cubicTo(10, 20, 7, 19, 6, 15);
  land.cubicTo(5, 12, 4, 11, 6, 8);
  land.moveTo(21, 9);
  land.cubicTo(24, 6, 31, 8, 31, 15);
  land.cubicTo(31, 21, 27, 25, 25, 23);
  land.cubicTo(23, 20, 25, 18, 22, 16);
  land.cubicTo(19, 14, 19, 11, 21, 9);
  painter.fillPath(land, downward(QColor(0x86, 0xd0, 0x6a), QColor(0x2c, 0x86, 0x3c)));
  painter.setPen(ink(0.8, QColor(255, 255, 255, 130)));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QRectF(9, 2, 14, 28));
  painter.drawLine(QPointF(2, 16), QPointF(30, 16));
  painter.restore();
}

void email(QPainter& painter) {
  const QRectF paper(2.5, 7, 27, 18.5);
  painter.setPen(ink(1.5));
  painter.setBrush(downward(QColor(0xff, 0xfd, 0xf4), QColor(0xe9, 0xd9, 0xb4), 7, 26));
  painter.drawRoundedRect(paper, 1.8, 1.8);
  painter.setPen(ink(1.1, QColor(0x9b, 0x86, 0x58)));
  painter.drawLine(QPointF(3.5, 24.5), QPointF(13, 16));
  painter.drawLine(QPointF(28.5, 24.5), QPointF(19, 16));
  QPainterPath flap;
  flap.moveTo(3, 7.6);
  flap.lineTo(15, 18);
  flap.quadTo(16, 18.8, 17, 18);
  flap.lineTo(29, 7.6);
  painter.setPen(ink(1.5));
  painter.setBrush(downward(QColor(0xff, 0xff, 0xff), QColor(0xf1, 0xe4, 0xc4), 7, 18));
  painter.drawPath(flap);
}

void retry(QPainter& painter) {
  constexpr double kRadius = 10.1, kFrom = 90, kSweep = 290;
  QPainterPath bow;
  const QRectF circle(16 - kRadius, 17.6 - kRadius, 2 * kRadius, 2 * kRadius);
  bow.arcMoveTo(circle, kFrom);
  bow.arcTo(circle, kFrom, kSweep);
  const QPainterPath head = polygon({QPointF(15, 2.2), QPointF(15, 12.8), QPointF(23.8, 7.5)});
  QPen wide(QColor(0x12, 0x30, 0x70), 7.2, Qt::SolidLine, Qt::FlatCap);
  QPen narrow(downward(QColor(0x6f, 0xae, 0xf2), QColor(0x1e, 0x5c, 0xc0)), 4.8, Qt::SolidLine,
              Qt::FlatCap);
  painter.strokePath(bow, wide);
  painter.strokePath(head, ink(2.4, QColor(0x12, 0x30, 0x70)));
  painter.strokePath(bow, narrow);
  painter.fillPath(head, QColor(0x6f, 0xae, 0xf2));
}

void open(QPainter& painter) {
  QPainterPath back;
  back.moveTo(3, 26);
  back.lineTo(3, 7.5);
  back.quadTo(3, 6, 4.5, 6);
  back.lineTo(11, 6);
  back.lineTo(13.5, 9);
  back.lineTo(25.5, 9);
  back.quadTo(27, 9, 27, 10.5);
  back.lineTo(27, 26);
  back.closeSubpath();
  painter.setPen(ink(1.5, QColor(0x5c, 0x42, 0x0c)));
  painter.setBrush(downward(QColor(0xf0, 0xc0, 0x50), QColor(0xc2, 0x8a, 0x1e)));
  painter.drawPath(back);
  painter.setPen(ink(1, QColor(0x44, 0x4c, 0x7a)));
  painter.setBrush(QColor(0x7d, 0x90, 0xe4));
  for (const QPoint& cell : {QPoint(0, 0), QPoint(1, 0), QPoint(2, 0), QPoint(1, 1)})
    painter.drawRect(QRectF(9 + 4.6 * cell.x(), 6.2 + 4.6 * cell.y(), 4.6, 4.6));
  const QPainterPath front =
      polygon({QPointF(7.5, 14.5), QPointF(30.2, 14.5), QPointF(26.5, 26.8), QPointF(3.2, 26.8)});
  painter.setPen(ink(1.5, QColor(0x5c, 0x42, 0x0c)));
  painter.setBrush(downward(QColor(0xff, 0xe2, 0x8e), QColor(0xf0, 0xb6, 0x3a), 14, 27));
  painter.drawPath(front);
}

void quit(QPainter& painter) {
  painter.setPen(ink(1.5));
  painter.setBrush(QColor(0x2e, 0x33, 0x55));
  painter.drawRect(QRectF(4, 3, 15, 26));
  const QPainterPath leaf =
      polygon({QPointF(4, 3), QPointF(13, 6), QPointF(13, 31), QPointF(4, 29)});
  painter.setBrush(downward(QColor(0xd9, 0x9a, 0x5b), QColor(0x9a, 0x5b, 0x2a)));
  painter.drawPath(leaf);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xff, 0xe0, 0x80));
  painter.drawEllipse(QPointF(10.6, 18), 1.2, 1.2);
  const QPainterPath way =
      polygon({QPointF(16, 13.6), QPointF(22.5, 13.6), QPointF(22.5, 9.5), QPointF(30, 16),
               QPointF(22.5, 22.5), QPointF(22.5, 18.4), QPointF(16, 18.4)});
  painter.strokePath(way, ink(2.6, QColor(0x6e, 0x10, 0x1c)));
  painter.fillPath(way, downward(QColor(0xf2, 0x6a, 0x6a), QColor(0xc8, 0x24, 0x34), 9, 23));
}

}  // namespace

QImage optionIcon(const std::string& name, double scale) {
  static const std::map<std::string, void (*)(QPainter&)> drawings{
      {"play", play},   {"edit", edit}, {"visit", visit}, {"email", email},
      {"retry", retry}, {"open", open}, {"quit", quit}};
  return painted(32, 32, scale, Qt::transparent, drawings.at(name));
}

}  // namespace pictures
