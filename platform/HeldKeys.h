#pragma once

#include <QObject>

/// As long as it lives, a key that is held down presses nothing a second time: Enter neither a
/// default button nor an option, in no window and in no dialog of the toolkit, and the space bar no
/// button. Both still repeat in text fields.
///
/// A repeated press is one that the toolkit marks as such, or one at the very moment of the
/// release before it: an X server sends both when it repeats a key, and the toolkit, which looks
/// for the press when it reads the release, often looks too early.
class HeldKeys : public QObject {
 public:
  HeldKeys();
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool isRepeated(const class QKeyEvent& press) const;

  int released_ = 0;                   // the key
  unsigned long long releasedAt_ = 0;  // milliseconds of the display system's clock; 0: unknown
};
