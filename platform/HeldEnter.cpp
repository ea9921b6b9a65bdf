#include "platform/HeldEnter.h"

#include <QApplication>
#include <QKeyEvent>

HeldEnter::HeldEnter() {
  qApp->installEventFilter(this);
}

bool HeldEnter::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* pressed = static_cast<QKeyEvent*>(event);
  const bool enter = pressed->key() == Qt::Key_Return || pressed->key() == Qt::Key_Enter;
  return enter && pressed->isAutoRepeat();
}
