#include "tests/machine/Mouse.h"

#include <QApplication>
#include <QEnterEvent>
#include <QWidget>
#include <QtTest/QTest>
#include <algorithm>
#include <cmath>

namespace machine {

namespace {

constexpr int kBetweenClicks = 1000;  // milliseconds, too slow for a double-click
constexpr QPointF kBesideAll(1990, 1490);
constexpr int kMotionTakes = 2;
constexpr double kReached = 1;          // logical pixel; the server rounds
constexpr qint64 kMillion = 1'000'000;  // nanoseconds of a millisecond

double distance(const QPointF& a, const QPointF& b) {
  return std::max(std::abs(a.x() - b.x()), std::abs(a.y() - b.y()));
}

/// The nearest whole device pixel.
QPointF onPixel(const QPointF& point) {
  const double ratio = qApp->devicePixelRatio();
  return QPointF((point * ratio).toPoint()) / ratio;
}

bool canBeWorkedWith(const QWidget& window) {
  return window.isVisible() && !window.isMinimized() && window.windowHandle();
}

}  // namespace

Mouse::Mouse() : server_(Pointer::server, server()) {
  wait(2 * kBetweenClicks);
  at_ = told_ = heard_ = home_ = homeTold_ = onPixel(kBesideAll);
  // The toolkit remembers the last place, too.
  qt_handleMouseEvent(nullptr, at_, at_, {}, Qt::NoButton, QEvent::MouseMove, {}, milliseconds_);
  Pointer::forget();
}

Pointer::Server Mouse::server() {
  Pointer::Server own;
  own.position = [this] { return QPointF(at_.toPoint()); };
  own.place = [this](const QPointF& to) { place(to); };
  own.nanoseconds = [] { return milliseconds_ * kMillion; };
  return own;
}

Mouse::~Mouse() {
  release();
}

QWindow* Mouse::over() const {
  if (QWidget* modal = QApplication::activeModalWidget())
    return canBeWorkedWith(*modal) && QRectF(modal->geometry()).contains(at_)
               ? modal->windowHandle()
               : nullptr;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->property("machineDesk").isNull() && canBeWorkedWith(*window) &&
        QRectF(window->geometry()).contains(at_))
      return window->windowHandle();
  return nullptr;
}

void Mouse::slip(const QPointF& to) {
  at_ = onPixel(to);
  home_ = at_;
  homeTold_ = told_;
}

void Mouse::forgive() {
  home_ = homeTold_ = at_;
  thrown_ = 0;
}

void Mouse::deliver(QWindow& window, Qt::MouseButton button, int type) {
  // The toolkit passes on no motion that leads nowhere, and one before a release elsewhere.
  if (type == QEvent::MouseButtonPress || at_ != heard_) takeHand();
  if (at_ != heard_) lost_ = held() && !grab_;
  heard_ = at_;
  qt_handleMouseEvent(&window, window.mapFromGlobal(at_), at_, buttons_, button,
                      static_cast<QEvent::Type>(type), {}, milliseconds_);
}

void Mouse::enter(QWindow* window) {
  if (entered_ == window) return;
  if (entered_) {
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(entered_, &leave);
  }
  entered_ = window;
  if (!window) return;
  const QPointF local = window->mapFromGlobal(at_);
  QEnterEvent enter(local, local, at_);
  QCoreApplication::sendEvent(window, &enter);
}

void Mouse::tell() {
  milliseconds_ += kMotionTakes;
  told_ = at_;
  homeTold_ = home_;
  const QPointer<QWindow> window = over();
  if (!held() || !grab_) enter(window);  // a grab ends with its window
  if (QWindow* hears = held() && grab_ ? grab_.data() : window.data())
    deliver(*hears, Qt::NoButton, QEvent::MouseMove);
}

void Mouse::press(Qt::MouseButton button) {
  milliseconds_ += kBetweenClicks;
  const QPointer<QWindow> window = held() && grab_ ? grab_.data() : over();
  if (!window) return;
  if (untold()) tell();
  if (!window) return;
  if (!held()) enter(window);  // it may have come under a pointer at rest
  if (!window) return;
  if (!held()) grab_ = window;
  last_ = button;
  buttons_ |= button;
  deliver(*window, button, QEvent::MouseButtonPress);
}

void Mouse::pressAgain() {
  release();
  const Qt::MouseButton button = last_;
  milliseconds_ -= kBetweenClicks - 2 * kMotionTakes;
  press(button);
}

void Mouse::release() {
  for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    if (!buttons_.testFlag(button)) continue;
    buttons_.setFlag(button, false);
    if (grab_) deliver(*grab_, button, QEvent::MouseButtonRelease);
  }
  grab_ = nullptr;
}

void Mouse::byKey(bool moves, const std::function<void()>& press) {
  wanted_.reset();
  press();
  if (wanted_ && (moves || kept_))
    kept_ = distance(*wanted_, at_) > kReached ? wanted_ : std::nullopt;
  forgive();
}

void Mouse::fingerLeaves(const QPointF& hand) {
  finger_.reset();
  kept_ = hand;
}

/// What the display server makes of the program's wish.
void Mouse::place(const QPointF& to) {
  const QPointF wanted = onPixel(QPointF(to.toPoint()));
  wanted_ = wanted;
  const bool toHand = kept_ && distance(wanted, *kept_) <= kReached;
  if (!toHand)
    thrown_ = std::max(thrown_, std::min(distance(wanted, home_), distance(wanted, homeTold_)));
  if (toHand && placing != Placing::DoesNothing) {
    home_ = homeTold_ = wanted;
    kept_.reset();
  }
  if (placing == Placing::DoesNothing || wanted == at_) return;
  at_ = wanted;
  if (placing == Placing::Works)
    QMetaObject::invokeMethod(
        &context_,
        [this] {
          if (untold()) tell();
        },
        Qt::QueuedConnection);
}

}  // namespace machine
