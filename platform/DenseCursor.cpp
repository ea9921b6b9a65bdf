#include "platform/DenseCursor.h"

#include <QGuiApplication>
#include <utility>

#include "drawing/Rounding.h"
#include "platform/DensePicture.h"

/// The toolkit hands a cursor to an X server as it is, pixels and hot spot, whatever density its
/// picture tells. Other display systems count the hot spot in logical pixels.
QCursor pointingWith(const QPixmap& picture, const QPoint& pixel) {
  const double unit = QGuiApplication::platformName() == "xcb" ? 1 : picture.devicePixelRatio();
  return QCursor(picture, nearest(pixel.x() / unit), nearest(pixel.y() / unit));
}

DenseCursor::DenseCursor(QString name, QPoint hotSpot)
    : name_(std::move(name)), hotSpot_(hotSpot) {}

const QCursor& DenseCursor::on(const QWidget& widget) {
  const double ratio = widget.devicePixelRatioF();
  if (ratio == ratio_) return cursor_;
  ratio_ = ratio;
  const QImage picture = densePicture(name_, widget, Fit::Exact);
  cursor_ = pointingWith(QPixmap::fromImage(picture),
                         {nearest(hotSpot_.x() * ratio), nearest(hotSpot_.y() * ratio)});
  return cursor_;
}
