#pragma once

#include <QObject>

/// As long as it lives, Enter that is held down presses nothing a second time: neither a default
/// button nor an option nor a button that has the focus, in no window and in no dialog of the
/// toolkit. The space bar needs no such care, since the toolkit's buttons take no repeated one.
class HeldEnter : public QObject {
 public:
  HeldEnter();
  bool eventFilter(QObject* object, QEvent* event) override;
};
