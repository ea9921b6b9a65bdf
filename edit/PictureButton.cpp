#include "edit/PictureButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <utility>

#include "drawing/Rounding.h"

namespace {

constexpr QColor kFace(192, 192, 192);
constexpr int kSunken = 1;  // pixels by which the picture of a pressed button moves

/// The density of the picture that a screen of that ratio shows, and the end of its file's name.
std::pair<double, const char*> densityFor(double ratio) {
  if (ratio <= 1) return {1, ".png"};
  if (ratio <= 1.5) return {1.5, "@1.5x.png"};
  return {2, "@2x.png"};
}

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
  const auto [density, ending] = densityFor(ratio);
  picture_ = QImage(":/pictures/" + name_ + ending);
  picture_.setDevicePixelRatio(1);  // the toolkit reads a density off some names, not off others
  if (density != ratio)
    picture_ = picture_.scaled(picture_.size() * (ratio / density), Qt::IgnoreAspectRatio,
                               Qt::SmoothTransformation);
  return picture_;
}

void PictureButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButtonBevel, option);

  const double ratio = devicePixelRatioF();
  const QImage& picture = pictureFor(ratio);
  const QPointF corner = QPointF(mapTo(window(), QPoint(0, 0))) * ratio;
  const QPointF middle = corner + QPointF(width(), height()) * ratio / 2;
  QPoint at(nearest(middle.x() - picture.width() / 2.0),
            nearest(middle.y() - picture.height() / 2.0));
  if (isDown()) at += QPoint(kSunken, kSunken);
  painter.scale(1 / ratio, 1 / ratio);  // from here on device pixels
  painter.drawImage(QPointF(at) - corner, picture);
}
