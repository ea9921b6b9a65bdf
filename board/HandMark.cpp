#include "board/HandMark.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr double kPen = 2;  // logical pixels
constexpr QColor kRing(255, 200, 0);
constexpr QColor kHalo(0, 0, 64);

}  // namespace

HandMark::HandMark(QWidget* window) : QWidget(window) {
  setObjectName("handMark");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void HandMark::showAt(const QPointF& global, double cell) {
  at_ = global;
  const int edge = std::max(static_cast<int>(cell), 12);
  const QPoint middle = parentWidget()->mapFromGlobal(global).toPoint();
  setGeometry(middle.x() - edge / 2, middle.y() - edge / 2, edge, edge);
  show();
  raise();
}

void HandMark::pointerMoved(const QPointF& global) {
  if ((global - at_).manhattanLength() > 2) hide();
}

void HandMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF ring = QRectF(rect()).adjusted(kPen, kPen, -kPen, -kPen);
  for (const auto& [colour, width] : {std::pair{kHalo, 2 * kPen}, std::pair{kRing, kPen}}) {
    painter.setPen(QPen(colour, width));
    painter.drawRoundedRect(ring, 4, 4);
  }
}
