#include "play/FirstMoment.h"

#include <QApplication>
#include <QMouseEvent>
#include <cmath>

#include "platform/Program.h"

namespace {

constexpr double kSeconds = 0.7;
constexpr double kDay = 86400;  // the clock starts anew at midnight

bool isPress(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
}

bool isMouse(QEvent::Type type) {
  return isPress(type) || type == QEvent::MouseButtonRelease || type == QEvent::MouseMove;
}

}  // namespace

FirstMoment::FirstMoment(QWidget* window)
    : QObject(window), window_(window), shown_(Program::Timer()) {
  qApp->installEventFilter(this);
}

bool FirstMoment::over() const {
  return std::fmod(Program::Timer() - shown_ + kDay, kDay) >= kSeconds;
}

void FirstMoment::noticeButtons(const QEvent& event) {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  Qt::MouseButtons before = mouse.buttons();
  if (isPress(event.type())) before.setFlag(mouse.button(), false);
  if (before == Qt::NoButton) buttonsWereUp_ = true;
}

bool FirstMoment::eventFilter(QObject* object, QEvent* event) {
  if (object == window_ && event->type() == QEvent::Show) shown_ = Program::Timer();
  if (isMouse(event->type())) noticeButtons(*event);
  const auto* widget = qobject_cast<QWidget*>(object);
  if (!widget || widget->window() != window_) return false;
  if (isPress(event->type())) return !buttonsWereUp_ || !over();
  return event->type() == QEvent::KeyPress && !over();
}
