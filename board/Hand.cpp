#include "board/Hand.h"

#include <QEvent>

#include "board/AccessibleBoard.h"
#include "board/PENTOWINDOW.h"
#include "platform/Form.h"
#include "platform/Pointer.h"

Hand::Hand(QWidget& window)
    : QObject(&window),
      window_(window),
      touch_(window, keys_),
      mark_(new HandMark(&window)),
      status_(new Status(&window)) {
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

void Hand::put(const QPointF& global) {
  Pointer::insist(global, window_);
}

void Hand::serve(PENTOWINDOW& board, PENTOWINDOW* tray) {
  keys_.serve(board, tray);
  touch_.listen();
}

bool Hand::keyPressed(const QKeyEvent& event) {
  if (!keys_.press(event)) return false;
  if (!Form::Unloaded(&window_)) showMark();
  return true;
}

void Hand::toBoard() {
  keys_.toBoard();
  showMark();
}

void Hand::showMark() {
  if (const PENTOWINDOW* control = keys_.underHand())
    mark_->showAt(Pointer::position(), control->TileWidth() / control->devicePixelRatioF());
}

void Hand::say(const std::function<QString()>& words) {
  if (!QAccessible::isActive()) return;
  for (PENTOWINDOW* board : keys_.boards()) AccessibleBoard::tellChanges(*board);
  status_->say(words());
}

void Hand::pointerMoved() {
  if (mark_->isVisible()) mark_->pointerMoved(Pointer::position());
}

bool Hand::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::WinIdChange:
    case QEvent::Show:
      touch_.listen();
      break;
    case QEvent::WindowBlocked:
      touch_.cancel();  // nobody tells a blocked window that a finger is lifted
      break;
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
