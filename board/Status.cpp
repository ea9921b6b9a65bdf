#include "board/Status.h"

#include <QAccessible>
#include <utility>

#include "board/AccessibleBoard.h"

Status::Status(QWidget* window) : QWidget(window) {
  setObjectName("status");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(0, 0, 1, 1);  // what has no size is not told of
  AccessibleBoard::provideFor(*this);
}

void Status::say(const QString& words) {
  if (words_.isEmpty())
    QMetaObject::invokeMethod(
        this, [this] { tell(); }, Qt::QueuedConnection);
  words_ << words;
}

void Status::tell() {
  const QString words = std::exchange(words_, {}).join("; ");
  // The same words again would be no change, which the toolkit tells of.
  setAccessibleName(words == accessibleName() ? words + QChar(QChar::Nbsp) : words);
  for (const QAccessible::Event kind : {QAccessible::ObjectShow, QAccessible::Alert}) {
    QAccessibleEvent event(this, kind);  // readers speak of what comes up
    QAccessible::updateAccessibility(&event);
  }
}
