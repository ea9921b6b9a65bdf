#include "tour/Robot.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <cmath>

#include "script/Script.h"

// After Qt's headers, since its macros would change them.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace {

constexpr double kStep = 24;  // device pixels a hand moves between two events
constexpr int kInsistence = 10;
constexpr int kSamePlace = 40;  // device pixels, more than any double click may wander

}  // namespace

struct Robot::Connection {
  Display* display = XOpenDisplay(nullptr);
};

Robot::Robot() : connection_(std::make_unique<Connection>()) {
  if (!connection_->display) throw Script::Error("There is no X server to play on.");
  barrier_ = Script::onScreen([] { return std::make_unique<EventBarrier>(); });
  managerBarrier_ = std::make_unique<ManagerBarrier>(connection_->display);
}

Robot::~Robot() {
  managerBarrier_.reset();
  Script::onScreen([this] { barrier_.reset(); });
  XCloseDisplay(connection_->display);
}

void Robot::flush() {
  barrier_->pass(connection_->display);
}

QPoint Robot::pointer() const {
  Window root = 0, child = 0;
  int x = 0, y = 0, ignored = 0;
  unsigned mask = 0;
  XQueryPointer(connection_->display, DefaultRootWindow(connection_->display), &root, &child, &x,
                &y, &ignored, &ignored, &mask);
  return {x, y};
}

void Robot::moveTo(const QPointF& point) {
  const QPointF from = pointer(), way = point - from;
  const int steps = std::max(1, static_cast<int>(std::hypot(way.x(), way.y()) / kStep));
  for (int i = 1; i <= steps; ++i) jumpTo((from + way * i / steps).toPoint());
  // The program may have put the pointer elsewhere meanwhile; a hand would go on to its target.
  for (int i = 0; i < kInsistence && pointer() != point.toPoint(); ++i) jumpTo(point.toPoint());
}

void Robot::moveTo(const std::function<QPointF()>& place) {
  QPointF wanted = Script::onScreen(place), before;
  int tries = 0;
  do {
    moveTo(wanted);
    before = std::exchange(wanted, Script::onScreen(place));
  } while (wanted != before && ++tries < kInsistence);
}

void Robot::jumpTo(const QPoint& point) {
  XTestFakeMotionEvent(connection_->display, -1, point.x(), point.y(), CurrentTime);
  flush();
}

void Robot::press(int button) {
  pressedAt_ = pointer();
  XTestFakeButtonEvent(connection_->display, static_cast<unsigned>(button), True, CurrentTime);
  flush();
  sincePress_.start();  // the server may have been slow to do it
}

void Robot::release(int button) {
  XTestFakeButtonEvent(connection_->display, static_cast<unsigned>(button), False, CurrentTime);
  flush();
}

void Robot::click(int button) {
  press(button);
  release(button);
}

void Robot::clickAlone() {
  const qint64 interval = QApplication::doubleClickInterval() + 1;
  const bool near = (pointer() - pressedAt_).manhattanLength() < kSamePlace;
  if (near && sincePress_.isValid() && !sincePress_.hasExpired(interval))
    QThread::msleep(static_cast<unsigned long>(interval - sincePress_.elapsed()));
  click();
}

void Robot::doubleClick() {
  click();
  click();
}

void Robot::key(const char* name) {
  const KeyCode code = XKeysymToKeycode(connection_->display, XStringToKeysym(name));
  XTestFakeKeyEvent(connection_->display, code, True, CurrentTime);
  XTestFakeKeyEvent(connection_->display, code, False, CurrentTime);
  flush();
}

void Robot::type(const std::string& text) {
  for (char letter : text) {
    const char name[] = {letter, '\0'};
    switch (letter) {
      case ' ':
        key("space");
        break;
      case '-':
        key("minus");
        break;
      case '.':
        key("period");
        break;
      case '/':
        key("slash");
        break;
      default:
        key(name);
    }
  }
}

void Robot::waitSettled(const std::string& what, const QWidget& window,
                        const std::function<bool()>& condition) {
  const auto holds = [&] { return condition() && knowsPlace(window); };
  do {
    Script::waitFor(what, holds);
    flush();
    managerBarrier_->pass();
    flush();
  } while (!Script::onScreen(holds));
}

/// True when the window is on the screen, and where and as large as the toolkit believes; a window
/// manager that has just placed it tells so a little later.
bool Robot::knowsPlace(const QWidget& window) const {
  constexpr double rounding = 2;  // a fractional scale has no whole logical pixels
  Display* display = connection_->display;
  const Window id = window.internalWinId();
  int x = 0, y = 0;
  Window child = 0;
  XWindowAttributes state;
  if (id == 0 || !XGetWindowAttributes(display, id, &state) || state.map_state != IsViewable ||
      !XTranslateCoordinates(display, id, DefaultRootWindow(display), 0, 0, &x, &y, &child))
    return false;
  const QPointF believed = QPointF(window.mapToGlobal(QPoint(0, 0))) * window.devicePixelRatioF();
  const QSizeF size = QSizeF(window.size()) * window.devicePixelRatioF();
  return (believed - QPointF(x, y)).manhattanLength() <= rounding &&
         std::abs(size.width() - state.width) <= rounding &&
         std::abs(size.height() - state.height) <= rounding;
}

void Robot::photograph(const QWidget* window, const QString& file) {
  QPixmap picture = Script::onScreen([window] {
    return window ? const_cast<QWidget*>(window)->grab() : qApp->primaryScreen()->grabWindow(0);
  });
  if (!picture.save(file)) throw Script::Error("Cannot write " + file.toStdString());
}

void Robot::photograph(const QString& file) {
  photograph(nullptr, file);
}
