#include "board/Hand.h"

#include <QEvent>

#include "platform/Pointer.h"

Hand::Hand(QWidget& window) : QObject(&window), window_(window) {
  setObjectName("hand");
  window.installEventFilter(this);
}

Hand& Hand::of(const QWidget& widget) {
  QWidget& window = *widget.window();
  auto* hand = static_cast<Hand*>(window.findChild<QObject*>("hand", Qt::FindDirectChildrenOnly));
  return hand ? *hand : *new Hand(window);
}

QPointF Hand::over(const QWidget& widget) const {
  return widget.mapFromGlobal(Pointer::position());
}

void Hand::holds(const QWidget* control, bool piece) {
  if (piece)
    controls_.insert(control);
  else
    controls_.remove(control);
  // Over buttons and frames the surfaces show nothing of the piece.
  if (holdsPiece())
    window_.setCursor(Qt::ClosedHandCursor);
  else
    window_.unsetCursor();
}

bool Hand::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowActivate:
    case QEvent::WindowUnblocked:
    case QEvent::WindowStateChange:
      if (holdsPiece()) Pointer::moveFollows(window_);
      break;
    default:
      break;
  }
  return false;
}
