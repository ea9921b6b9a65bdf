#include "platform/Pointer.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <optional>

#include "platform/FollowingMove.h"

namespace Pointer {

namespace {

constexpr double kReached = 1.5;         // logical pixels; the server rounds both coordinates
constexpr qint64 kSameMoment = 500'000;  // nanoseconds in which two questions get one answer

std::function<void()> newsListener;

void changed() {
  if (newsListener) newsListener();
}

/// Remembers what events told of the pointer.
class Listener : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseMove:
        FollowingMove::cancel();
        [[fallthrough]];
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        tell(static_cast<QMouseEvent*>(event)->globalPosition());
        break;
      case QEvent::Leave:
      case QEvent::WindowBlocked:
      case QEvent::WindowDeactivate:
      case QEvent::WindowStateChange:
        known_ = false;  // from now on the pointer may move without our hearing of it
        changed();
        break;
      default:
        break;
    }
    return false;
  }

  void keep(const QPointF& position) {
    kept_ = position;
    changed();
  }
  void follow(const std::optional<QPointF>& finger) {
    finger_ = finger;
    changed();
  }
  bool follows() const { return finger_.has_value(); }
  bool keeps() const { return kept_.has_value(); }
  bool known() const { return finger_ || kept_ || known_; }

  QPointF position() {
    if (finger_) return *finger_;
    if (kept_) return *kept_;
    const qint64 now = server->nanoseconds();
    if (known_ || (asked_ >= 0 && now - asked_ < kSameMoment)) return last_;
    asked_ = now;
    last_ = server->position();
    return last_;
  }

  void forget() {
    kept_.reset();
    known_ = false;
    asked_ = -1;
    changed();
  }

  double secondsSinceMove() const {
    return static_cast<double>(server->nanoseconds() - lastMove_) / 1e9;
  }

 private:
  void tell(const QPointF& position) {
    if (position != last_) lastMove_ = server->nanoseconds();
    last_ = position;
    known_ = true;
    kept_.reset();
    changed();
  }

  QPointF last_;
  std::optional<QPointF> kept_;
  std::optional<QPointF> finger_;
  bool known_ = false;
  qint64 asked_ = -1;
  qint64 lastMove_ = -1'000'000'000;
};

Listener* listener = nullptr;

/// The server takes whole pixels only. To ask for what it cannot do better than it is done already
/// would let a pointer at rest drift.
bool comesCloser(const QPointF& wanted, const QPointF& now) {
  const QPointF reached = wanted.toPoint();
  return (reached - wanted).manhattanLength() < (now - wanted).manhattanLength();
}

bool followsFinger() {
  return listener && listener->follows();
}

void ask(const QPointF& wanted, QWidget& window) {
  if (!followsFinger() && comesCloser(wanted, position())) {
    server->place(wanted);
    forget();
  }
  moveFollows(window);
}

}  // namespace

Server::Server()
    : position([] { return QPointF(QCursor::pos()); }),
      place([](const QPointF& wanted) { QCursor::setPos(wanted.toPoint()); }),
      nanoseconds([] {
        static const QElapsedTimer clock = [] {
          QElapsedTimer started;
          started.start();
          return started;
        }();
        return clock.nsecsElapsed();
      }) {}

Seam<Server> server{Server()};

QPointF position() {
  return listener ? listener->position() : server->position();
}

void place(const QPointF& wanted, QWidget& window) {
  if (listener && listener->keeps())
    insist(wanted, window);
  else
    ask(wanted, window);
}

void insist(const QPointF& wanted, QWidget& window) {
  ask(wanted, window);
  if (listener && !followsFinger() && (server->position() - wanted).manhattanLength() > kReached)
    listener->keep(wanted);
}

void follow(const QPointF& finger) {
  if (listener) listener->follow(finger);
}

void stay(const QPointF& position) {
  if (!listener) return;
  listener->follow(std::nullopt);
  listener->keep(position);
}

void moveFollows(QWidget& window) {
  FollowingMove::post(window);
}

bool known() {
  return listener && listener->known();
}

void onNews(std::function<void()> news) {
  newsListener = std::move(news);
}

double secondsSinceMove() {
  return listener ? listener->secondsSinceMove() : 0;
}

void forget() {
  if (listener) listener->forget();
}

void listen() {
  if (listener) return;
  listener = new Listener;
  listener->setParent(qApp);
  QObject::connect(listener, &QObject::destroyed, [] { listener = nullptr; });
  qApp->installEventFilter(listener);
}

}  // namespace Pointer
