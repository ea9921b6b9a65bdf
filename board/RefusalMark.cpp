#include "board/RefusalMark.h"

#include <QPainter>
#include <QTransform>
#include <cmath>

#include "board/PieceOutline.h"

namespace {

constexpr int kMilliseconds = 300;
constexpr double kPen = 3;  // logical pixels
constexpr QColor kRefused(224, 0, 0);
constexpr QColor kHalo(255, 255, 255);

}  // namespace

RefusalMark::RefusalMark(QWidget* control) : QWidget(control) {
  setObjectName("refusal");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &RefusalMark::hide);
}

void RefusalMark::mark(const PENTO& piece, const QPointF& corner, double tile) {
  show();
  raise();
  follow(piece, corner, tile);
  timer_.start(kMilliseconds);
}

void RefusalMark::follow(const PENTO& piece, const QPointF& corner, double tile) {
  if (isHidden()) return;
  const QPointF outer = corner - QPointF(kPen, kPen);
  const QPoint whole(static_cast<int>(std::floor(outer.x())),
                     static_cast<int>(std::floor(outer.y())));
  outline_ = QTransform::fromScale(tile, tile).map(outlineOf(piece)).translated(corner - whole);
  setGeometry(
      QRect(whole, QSize(static_cast<int>(std::ceil(piece.Width() * tile + 2 * kPen)) + 1,
                         static_cast<int>(std::ceil(piece.Height() * tile + 2 * kPen)) + 1)));
  update();
}

void RefusalMark::clear() {
  timer_.stop();
  hide();
}

void RefusalMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [colour, width] : {std::pair{kHalo, kPen + 2}, std::pair{kRefused, kPen}}) {
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawPolygon(outline_);
  }
}
