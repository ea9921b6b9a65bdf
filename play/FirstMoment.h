#pragma once

#include <QObject>
#include <QWidget>

/// The first moment of a window that opens under the player's hand: presses and keys that come so
/// early were meant for what was there before, and are ignored.
///
/// Over:    700 ms after the window was shown, by the program's clock.
/// Presses: are ignored beyond that until no mouse button has been held once. Which buttons are
///          held is read from the mouse events themselves, since the release of the press that
///          opened a dialog never comes; for the same reason keys do not wait for it.
class FirstMoment : public QObject {
 public:
  explicit FirstMoment(QWidget* window);  ///< becomes the window's child

  bool over() const;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void noticeButtons(const QEvent& event);

  QWidget* window_;
  double shown_;  // seconds since midnight
  bool buttonsWereUp_ = false;
};
