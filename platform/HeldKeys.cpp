#include "platform/HeldKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

HeldKeys::HeldKeys() {
  qApp->installEventFilter(this);
}

bool HeldKeys::isRepeated(const QKeyEvent& press) const {
  const bool sameMoment = releasedAt_ != 0 && press.timestamp() == releasedAt_;
  return press.isAutoRepeat() || (sameMoment && press.key() == released_);
}

bool HeldKeys::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (event->type() == QEvent::KeyRelease) {
    released_ = key.key();
    releasedAt_ = key.timestamp();
    return false;
  }
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  const bool space = key.key() == Qt::Key_Space && qobject_cast<QAbstractButton*>(object);
  return (enter || space) && isRepeated(key);
}
