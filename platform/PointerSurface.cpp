#include "platform/PointerSurface.h"

#include "platform/ChildAt.h"

namespace {

PointerSurface::Button buttonOf(const QMouseEvent& event) {
  switch (event.button()) {
    case Qt::LeftButton:
      return PointerSurface::kLeft;
    case Qt::RightButton:
      return PointerSurface::kRight;
    case Qt::MiddleButton:
      return PointerSurface::kMiddle;
    default:
      return PointerSurface::kNone;
  }
}

}  // namespace

PointerSurface::PointerSurface(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setContextMenuPolicy(Qt::PreventContextMenu);
}

PointerSurface* PointerSurface::under(const QWidget& window, const QPointF& global) {
  return dynamic_cast<PointerSurface*>(::childAt(window, window.mapFromGlobal(global)));
}

void PointerSurface::moveUnder(QWidget& window, const QPointF& global) {
  if (PointerSurface* target = under(window, global))
    target->pointerMove(target->mapFromGlobal(global));
}

void PointerSurface::mouseMoveEvent(QMouseEvent* event) {
  moveUnder(*window(), event->globalPosition());
}

void PointerSurface::mousePressEvent(QMouseEvent* event) {
  const Button button = buttonOf(*event);
  PointerSurface* target = under(*window(), event->globalPosition());
  if (target && button != kNone)
    target->pointerDown(button, target->mapFromGlobal(event->globalPosition()));
}

void PointerSurface::mouseDoubleClickEvent(QMouseEvent* event) {
  const Button button = buttonOf(*event);
  PointerSurface* target = under(*window(), event->globalPosition());
  if (target && button != kNone)
    target->pointerDoubleClick(button, target->mapFromGlobal(event->globalPosition()));
}
