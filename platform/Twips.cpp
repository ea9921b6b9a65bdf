#include "platform/Twips.h"

#include "drawing/Rounding.h"
#include "platform/LargeText.h"

namespace Twips {

namespace {

constexpr double kPerInch = 1440;

}  // namespace

double perPixel(const QWidget& widget) {
  return kPerInch / (widget.logicalDpiX() * LargeText::factor(widget));
}

double perDevicePixelX(const QWidget& widget) {
  return kPerInch / (widget.logicalDpiX() * widget.devicePixelRatioF() * LargeText::factor(widget));
}

double perDevicePixelY(const QWidget& widget) {
  return kPerInch / (widget.logicalDpiY() * widget.devicePixelRatioF() * LargeText::factor(widget));
}

QRect toPixels(const QRectF& twips, const QWidget& widget) {
  const double unit = perPixel(widget);
  const QPoint topLeft(nearest(twips.left() / unit), nearest(twips.top() / unit));
  const QPoint beyond(nearest(twips.right() / unit), nearest(twips.bottom() / unit));
  return {topLeft, QSize(beyond.x() - topLeft.x(), beyond.y() - topLeft.y())};
}

QSize toPixels(const QSizeF& twips, const QWidget& widget) {
  return toPixels(QRectF(QPointF(0, 0), twips), widget).size();
}

void place(QWidget& widget, double left, double top, double width, double height) {
  widget.setGeometry(toPixels(QRectF(left, top, width, height), widget));
}

}  // namespace Twips
