#include "platform/PointerSurface.h"

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

PointerSurface* PointerSurface::under(const QPointF& global) const {
  return dynamic_cast<PointerSurface*>(
      window()->childAt(window()->mapFromGlobal(global).toPoint()));
}

void PointerSurface::mouseMoveEvent(QMouseEvent* event) {
  if (PointerSurface* target = under(event->globalPosition()))
    target->pointerMove(target->mapFromGlobal(event->globalPosition()));
}

void PointerSurface::mousePressEvent(QMouseEvent* event) {
  const Button button = buttonOf(*event);
  PointerSurface* target = under(event->globalPosition());
  if (target && button != kNone)
    target->pointerDown(button, target->mapFromGlobal(event->globalPosition()));
}

void PointerSurface::mouseDoubleClickEvent(QMouseEvent* event) {
  const Button button = buttonOf(*event);
  PointerSurface* target = under(event->globalPosition());
  if (target && button != kNone)
    target->pointerDoubleClick(button, target->mapFromGlobal(event->globalPosition()));
}
