#include "tour/Robot.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <cmath>

#include "tour/Script.h"

// After Qt's headers, since its macros would change them.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace {

constexpr double kStep = 24;  // device pixels a hand moves between two events

}  // namespace

struct Robot::Connection {
  Display* display = XOpenDisplay(nullptr);
};

Robot::Robot() : connection_(std::make_unique<Connection>()) {
  if (!connection_->display) throw Script::Error("There is no X server to play on.");
}

Robot::~Robot() {
  XCloseDisplay(connection_->display);
}

void Robot::flush() {
  XSync(connection_->display, False);
  Script::onScreen([] {});  // by the time this answers, the events before it have been handled
}

void Robot::moveTo(const QPointF& point) {
  Window root = 0, child = 0;
  int x = 0, y = 0, ignored = 0;
  unsigned mask = 0;
  XQueryPointer(connection_->display, DefaultRootWindow(connection_->display), &root, &child, &x,
                &y, &ignored, &ignored, &mask);
  at_ = QPointF(x, y);
  const QPointF way = point - at_;
  const int steps = std::max(1, static_cast<int>(std::hypot(way.x(), way.y()) / kStep));
  for (int i = 1; i <= steps; ++i) {
    const QPointF next = at_ + way * i / steps;
    XTestFakeMotionEvent(connection_->display, -1, static_cast<int>(std::lround(next.x())),
                         static_cast<int>(std::lround(next.y())), CurrentTime);
    flush();
  }
}

void Robot::press(int button) {
  XTestFakeButtonEvent(connection_->display, static_cast<unsigned>(button), True, CurrentTime);
  flush();
}

void Robot::release(int button) {
  XTestFakeButtonEvent(connection_->display, static_cast<unsigned>(button), False, CurrentTime);
  flush();
}

void Robot::click(int button) {
  press(button);
  release(button);
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

void Robot::photograph(const QWidget* window, const QString& file) {
  QPixmap picture = Script::onScreen([window] {
    return window ? const_cast<QWidget*>(window)->grab() : qApp->primaryScreen()->grabWindow(0);
  });
  if (!picture.save(file)) throw Script::Error("Cannot write " + file.toStdString());
}

void Robot::photograph(const QString& file) {
  photograph(nullptr, file);
}
