#include "edit/PictureButton.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "drawing/Rounding.h"
#include "platform/DensePicture.h"
#include "platform/LargeText.h"

namespace {

constexpr QColor kFace(192, 192, 192);
constexpr int kSunken = 1;  // pixels by which the picture of a pressed button moves

}  // namespace

PictureButton::PictureButton(QWidget* parent, const QString& picture, const QString& name,
                             const QString& hint)
    : QPushButton(parent), name_(picture) {
  setAccessibleName(name);
  setToolTip(hint);
  setFocusPolicy(Qt::TabFocus);
  QPalette grey = palette();
  grey.setColor(QPalette::Button, kFace);
  setPalette(grey);
}

const QImage& PictureButton::pictureFor(double ratio) {
  if (ratio == ratio_) return picture_;
  ratio_ = ratio;
  picture_ = densePicture(name_ + ".png", ratio, Fit::Exact);
  picture_.setDevicePixelRatio(1);  // it is drawn in device pixels
  return picture_;
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !event->isAutoRepeat())
    click();
  else
    QPushButton::keyPressEvent(event);
}

void PictureButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButtonBevel, option);

  const double ratio = devicePixelRatioF();
  const QImage& picture = pictureFor(ratio * LargeText::factor(*this));
  const QPointF corner = QPointF(mapTo(window(), QPoint(0, 0))) * ratio;
  const QPointF middle = corner + QPointF(width(), height()) * ratio / 2;
  QPoint at(nearest(middle.x() - picture.width() / 2.0),
            nearest(middle.y() - picture.height() / 2.0));
  if (isDown()) at += QPoint(kSunken, kSunken);
  painter.scale(1 / ratio, 1 / ratio);  // from here on device pixels
  painter.drawImage(QPointF(at) - corner, picture);
}
