#include "platform/Pointer.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QMouseEvent>

namespace Pointer {

namespace {

constexpr qint64 kSameMoment = 500'000;  // nanoseconds in which two questions get one answer

/// Remembers what events told of the pointer.
class Listener : public QObject {
 public:
  Listener() {
    clock_.start();
    lastMove_ = -1'000'000'000;
  }

  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseMove:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        tell(static_cast<QMouseEvent*>(event)->globalPosition());
        break;
      case QEvent::Leave:
      case QEvent::WindowBlocked:
      case QEvent::WindowDeactivate:
        known_ = false;  // from now on the pointer may move without our hearing of it
        break;
      default:
        break;
    }
    return false;
  }

  QPointF position() {
    const qint64 now = clock_.nsecsElapsed();
    if (known_ || (asked_ >= 0 && now - asked_ < kSameMoment)) return last_;
    asked_ = now;
    last_ = QPointF(QCursor::pos());
    return last_;
  }

  void forget() {
    known_ = false;
    asked_ = -1;
  }

  double secondsSinceMove() const {
    return static_cast<double>(clock_.nsecsElapsed() - lastMove_) / 1e9;
  }

 private:
  void tell(const QPointF& position) {
    if (position != last_) lastMove_ = clock_.nsecsElapsed();
    last_ = position;
    known_ = true;
  }

  QElapsedTimer clock_;
  QPointF last_;
  bool known_ = false;
  qint64 asked_ = -1;
  qint64 lastMove_ = 0;
};

Listener* listener = nullptr;

}  // namespace

QPointF position() {
  return listener ? listener->position() : QPointF(QCursor::pos());
}

void place(const QPointF& position) {
  QCursor::setPos(position.toPoint());
  if (listener) listener->forget();
}

double secondsSinceMove() {
  return listener ? listener->secondsSinceMove() : 0;
}

void listen() {
  if (listener) return;
  listener = new Listener;
  listener->setParent(qApp);
  QObject::connect(listener, &QObject::destroyed, [] { listener = nullptr; });
  qApp->installEventFilter(listener);
}

}  // namespace Pointer
