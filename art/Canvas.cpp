#include "art/Canvas.h"

#include <cmath>

namespace pictures {

QImage painted(int width, int height, double scale, const QColor& ground,
               const std::function<void(QPainter&)>& paint) {
  QImage picture(static_cast<int>(std::lround(width * scale)),
                 static_cast<int>(std::lround(height * scale)),
                 QImage::Format_ARGB32_Premultiplied);
  picture.fill(ground);
  QPainter painter(&picture);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.scale(scale, scale);
  paint(painter);
  painter.end();
  if (ground.alpha() == 255) picture.convertTo(QImage::Format_RGB32);
  return picture;
}

}  // namespace pictures
