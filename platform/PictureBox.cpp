#include "platform/PictureBox.h"

#include <QPaintEvent>
#include <QPainter>
#include <cmath>

#include "drawing/Rounding.h"
#include "platform/Density.h"

namespace {

/// Device pixels from the window's corner to the widget's corner. Fractional on fractional scales.
QPointF deviceCorner(const QWidget& widget) {
  return QPointF(widget.mapTo(widget.window(), QPoint(0, 0))) * widget.devicePixelRatioF();
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : PointerSurface(parent) {}

void PictureBox::BorderStyle(int style) {
  border_ = style == 0 ? 0 : kSunkenBorder;
  fitPicture();
  update();
}

void PictureBox::setPlace(const QPointF& topLeft, const QSize& outer) {
  wanted_ = topLeft;
  outer_ = outer.expandedTo(QSize(0, 0));
  fitPicture();
  layOut();
}

void PictureBox::fitPicture() {
  const QSize inner = (outer_ - QSize(2 * border_, 2 * border_)).expandedTo(QSize(0, 0));
  if (picture_.width() == inner.width() && picture_.height() == inner.height()) return;
  picture_.resize(inner.width(), inner.height());
  picture_.clear(Surface::rgb(255, 255, 255));
  requestPaint();
}

/// The widget is the smallest rectangle of logical pixels that holds the box's device pixels.
void PictureBox::layOut() {
  ratio_ = devicePixelRatioF();
  const QPointF parentCorner = deviceCorner(*parentWidget());
  const QPointF corner(nearest(parentCorner.x() + wanted_.x()),
                       nearest(parentCorner.y() + wanted_.y()));
  const QPointF first = (corner - parentCorner) / ratio_;
  const QPointF last = first + QPointF(outer_.width(), outer_.height()) / ratio_;
  constexpr double slack = 1e-6;  // a whole number that division made a little larger
  const QPoint topLeft(static_cast<int>(std::floor(first.x() + slack)),
                       static_cast<int>(std::floor(first.y() + slack)));
  const QPoint beyond(static_cast<int>(std::ceil(last.x() - slack)),
                      static_cast<int>(std::ceil(last.y() - slack)));
  inside_ = (first - QPointF(topLeft)) * ratio_;
  setGeometry(QRect(topLeft, QSize(beyond.x() - topLeft.x(), beyond.y() - topLeft.y())));
  // Covering the widget wholly, it spares the windows beneath from being painted at every step.
  setAttribute(Qt::WA_OpaquePaintEvent,
               inside_.isNull() && QSizeF(size()) * ratio_ == QSizeF(outer_));
  update();
}

void PictureBox::present(const QRect& changed) {
  const QPointF corner =
      (inside_ + QPointF(border_, border_) + QPointF(changed.topLeft())) / ratio_;
  const QRectF area(corner, QSizeF(changed.size()) / ratio_);
  update(area.toAlignedRect());
}

QPointF PictureBox::screenCorner() const {
  return QPointF(mapToGlobal(QPoint(0, 0))) + inside_ / ratio_;
}

QPointF PictureBox::toPicture(const QPointF& logical) const {
  return logical * ratio_ - inside_ - QPointF(border_, border_);
}

void PictureBox::pointerMove(const QPointF& position) {
  const QPointF at = toPicture(position);
  if (MouseMove) MouseMove(at.x(), at.y());
}

void PictureBox::pointerDown(Button button, const QPointF& position) {
  const QPointF at = toPicture(position);
  if (MouseDown) MouseDown(button, at.x(), at.y());
}

void PictureBox::pointerDoubleClick(Button button, const QPointF&) {
  if (DblClick) DblClick(button);
}

void PictureBox::paintEvent(QPaintEvent* event) {
  if (stale_) requestPaint();
  QPainter painter(this);
  painter.scale(1 / ratio_, 1 / ratio_);  // from here on device pixels, nothing is stretched
  painter.translate(inside_);
  const QRectF exposed(toPicture(event->rect().topLeft()), QSizeF(event->rect().size()) * ratio_);
  if (!QRectF(0, 0, picture_.width(), picture_.height()).contains(exposed)) drawBorder(painter);
  painter.drawImage(QPointF(border_, border_), picture_.view());
}

void PictureBox::drawBorder(QPainter& painter) const {
  if (border_ == 0) return;
  constexpr QColor shades[kSunkenBorder][2] = {{QColor(128, 128, 160), QColor(240, 240, 255)},
                                               {QColor(72, 72, 96), QColor(212, 212, 236)}};
  for (int ring = 0; ring < kSunkenBorder; ++ring) {
    const int width = outer_.width() - 2 * ring, height = outer_.height() - 2 * ring;
    painter.fillRect(ring, ring, width, 1, shades[ring][0]);
    painter.fillRect(ring, ring, 1, height, shades[ring][0]);
    painter.fillRect(ring, ring + height - 1, width, 1, shades[ring][1]);
    painter.fillRect(ring + width - 1, ring, 1, height, shades[ring][1]);
  }
}

void PictureBox::showEvent(QShowEvent* event) {
  layOut();  // the window, and so its corner and ratio, may be another than when it was placed
  requestPaint();
  QWidget::showEvent(event);
}

bool PictureBox::event(QEvent* event) {
  if (mayChangeDensity(*event) || event->type() == QEvent::Move) {
    if (ratio_ != devicePixelRatioF()) {
      layOut();
      requestPaint();
    }
  }
  return PointerSurface::event(event);
}

void PictureBox::requestPaint() {
  if (requested_) return;
  requested_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        requested_ = stale_ = false;
        if (Paint) Paint();
      },
      Qt::QueuedConnection);
}

void PictureBox::setPictureCursor(const QCursor& cursor) {
  cursor_ = cursor;
  applyCursor();
}

void PictureBox::setBlocked(bool blocked) {
  blocked_ = blocked;
  applyCursor();
}

void PictureBox::applyCursor() {
  setCursor(blocked_ ? QCursor(Qt::ArrowCursor) : cursor_);
}
