#include <array>
#include <cmath>
#include <numbers>

#include "art/Canvas.h"
#include "art/Drawings.h"
#include "art/Materials.h"
#include "art/Noise.h"
#include "art/PiecePaint.h"

namespace pictures {
namespace {

/// One of the two ways to lay the twelve pieces into 3 x 20.
const std::vector<std::string> kStrip{"UUXIIIIINNNFTWYYYYZV", "UXXXPPLNNFFFTWWYZZZV",
                                      "UUXPPPLLLLFTTTWWZVVV"};
constexpr double kCell = 17;
const QPointF kMiddle(200, 50);  ///< of the strip
/// The labels lie here; nothing but the plain sky does.
const QRectF kQuiet(84, 92, 246, 108);

void paintSky(QPainter& painter) {
  QLinearGradient sky(0, 0, 0, 200);
  sky.setColorAt(0, QColor(0x9a, 0x95, 0xf0));
  sky.setColorAt(0.42, QColor(0xd2, 0xd2, 0xff));
  sky.setColorAt(1, QColor(192, 192, 255));
  painter.fillRect(QRectF(0, 0, 400, 200), sky);
}

/// Rays from behind the strip that fade before they reach the labels.
void paintRays(QPainter& painter) {
  constexpr int kRays = 22;
  QRadialGradient fading(kMiddle, 210);
  fading.setColorAt(0, QColor(255, 255, 255, 170));
  fading.setColorAt(0.35, QColor(255, 255, 255, 70));
  fading.setColorAt(1, QColor(255, 255, 255, 0));
  const double step = 2 * std::numbers::pi / kRays;
  for (int i = 0; i < kRays; ++i) {
    QPainterPath ray(kMiddle);
    for (const double side : {-0.24, 0.24}) {
      const double angle = (i + 0.5 + side) * step;
      // Wider than high, as the picture is.
      ray.lineTo(kMiddle + QPointF(420 * std::cos(angle), 240 * std::sin(angle)));
    }
    painter.fillPath(ray, fading);
  }
}

/// A five-pointed star with bevelled arms, lit from the top left.
void paintStar(QPainter& painter, const QPointF& middle, double radius, double turn) {
  std::array<QPointF, 10> points;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double angle = std::numbers::pi * (static_cast<double>(i) / 5 - 0.5) + turn;
    const double reach = i % 2 == 0 ? radius : radius * 0.46;
    points[i] = middle + reach * QPointF(std::cos(angle), std::sin(angle));
  }
  QPainterPath contour;
  contour.addPolygon(QPolygonF(QList<QPointF>(points.begin(), points.end())));
  contour.closeSubpath();
  paintShadow(painter, contour, radius * 0.11);
  painter.strokePath(contour, QPen(QColor(0x8a, 0x5a, 0x08), radius * 0.14, Qt::SolidLine,
                                   Qt::RoundCap, Qt::RoundJoin));
  for (std::size_t i = 0; i < points.size(); ++i) {
    const QPointF a = points[i], b = points[(i + 1) % points.size()];
    const QPointF side = (a + b) / 2 - middle;
    const double towardsLight = -(0.6 * side.x() + 0.8 * side.y()) / std::hypot(side.x(), side.y());
    const double turned = i % 2 == 0 ? 0.28 : -0.28;  // an arm's two faces differ
    const Lab gold = lch(76 + 13 * (0.7 * towardsLight + turned), 68, 82);
    QPainterPath face(middle);
    face.lineTo(a);
    face.lineTo(b);
    face.closeSubpath();
    const QColor colour = QColor::fromRgb(toRgb(gold));
    painter.fillPath(face, colour);
    painter.strokePath(face, QPen(colour, 0.4));
  }
}

/// Small squares of the pieces' colours, thicker at the sides.
void paintConfetti(QPainter& painter) {
  constexpr int kFlakes = 110;
  constexpr std::uint32_t kSeed = 301;
  const QRectF strip(26, 20, 352, 64);
  for (int i = 0; i < kFlakes; ++i) {
    const QPointF place(400 * hashed(i, 0, kSeed), 200 * hashed(i, 1, kSeed));
    if (kQuiet.contains(place) || strip.contains(place)) continue;
    const double edge = 3 + 3.2 * hashed(i, 2, kSeed);
    const int type = static_cast<int>(12 * hashed(i, 3, kSeed));
    painter.save();
    painter.translate(place);
    painter.rotate(360 * hashed(i, 4, kSeed));
    painter.scale(1, 0.45 + 0.55 * hashed(i, 5, kSeed));  // they tumble
    painter.fillRect(QRectF(-edge / 2, -edge / 2, edge, edge),
                     QColor::fromRgb(toRgb(meanColour(type))));
    painter.restore();
  }
}

}  // namespace

QImage wayToGo(double scale) {
  return painted(400, 200, scale, QColor(192, 192, 255), [scale](QPainter& painter) {
    paintSky(painter);
    paintRays(painter);
    paintConfetti(painter);
    const PieceLook look{.cell = kCell,
                         .radius = 1.6,
                         .bevel = 1.8,
                         .outline = 1,
                         .shadow = 4,
                         .grain = 1.5,
                         .deviceScale = scale};
    painter.save();
    // Half a pixel lets the outlines cover whole ones.
    painter.translate(kMiddle.x() - 10 * kCell + 0.5, kMiddle.y() - 1.5 * kCell + 1);
    paintPieces(painter, piecesOf(kStrip), look);
    painter.restore();
    paintStar(painter, QPointF(43, 137), 27, -0.18);
    paintStar(painter, QPointF(22, 180), 12, 0.25);
    paintStar(painter, QPointF(365, 137), 27, 0.18);
    paintStar(painter, QPointF(378, 180), 12, -0.25);
  });
}

}  // namespace pictures
