#include "platform/FollowingMove.h"

#include <QPointer>

#include "platform/Form.h"
#include "platform/Pointer.h"
#include "platform/PointerSurface.h"

namespace FollowingMove {

namespace {

QPointer<QWidget> pending;
int posted = 0;  // only the last one posted counts

bool mayMove(const QWidget& window) {
  return window.isVisible() && !window.isMinimized() && !Form::Unloaded(&window) &&
         !Form::Blocked(&window);
}

void send() {
  QWidget* window = pending;
  pending = nullptr;
  if (window && mayMove(*window)) PointerSurface::moveUnder(*window, Pointer::position());
}

}  // namespace

void post(QWidget& window) {
  pending = &window;
  ++posted;
  QMetaObject::invokeMethod(
      &window,
      [number = posted] {
        if (number == posted) send();
      },
      Qt::QueuedConnection);
}

void cancel() {
  pending = nullptr;
}

}  // namespace FollowingMove
