#pragma once

#include <QPointer>
#include <QWindow>
#include <functional>
#include <optional>

#include "platform/Pointer.h"

namespace machine {

/// A pointer on a desktop of the test's own, behind the program's questions to the display server.
/// It can be somewhere without the program having been told, and take the program's wish to place
/// it as badly as a display server may.
///
/// Units: logical pixels of the desktop. The pointer stands on whole device pixels.
class Mouse {
 public:
  enum class Placing { Works, RaisesNoMotion, DoesNothing };

  Mouse();
  ~Mouse();
  Mouse(const Mouse&) = delete;
  Mouse& operator=(const Mouse&) = delete;

  QPointF at() const { return at_; }
  /// Where the program's hand is: at the finger that leads it, at the pointer, or where a key has
  /// put it or a finger has left it and the pointer could not follow.
  QPointF hand() const { return finger_ ? *finger_ : kept_.value_or(at_); }
  void takeHand() { kept_.reset(); }
  /// A key was pressed. If it moves the hand, or one did before, the hand is where the program
  /// wanted the pointer, until it hears of it.
  void byKey(bool moves, const std::function<void()>& press);
  void fingerLeads(const QPointF& to) { finger_ = to; }
  void fingerLeaves(const QPointF& hand);
  bool led() const { return finger_.has_value(); }
  bool untold() const { return at_ != told_; }
  /// The last motion was told to nobody: its button was pressed in a window that is gone.
  bool lost() const { return lost_; }
  bool held() const { return buttons_ != Qt::NoButton; }
  bool holds(Qt::MouseButton button) const { return buttons_.testFlag(button); }

  void slip(const QPointF& to);  ///< goes there, and nobody is told
  void tell();                   ///< the window under the pointer, or that has the press, is told
  void press(Qt::MouseButton button);
  void pressAgain();  ///< soon after the last press, with the same button
  void release();

  /// The window under the pointer that can be worked with, or null.
  QWindow* over() const;

  /// How far the program has thrown the pointer from where the person, or a pick-up, put it.
  double thrown() const { return thrown_; }
  void forgive();  ///< where it is now is where it should be

  Placing placing = Placing::Works;
  void wait(int milliseconds) { milliseconds_ += milliseconds; }  ///< for the program's clock

 private:
  Pointer::Server server();
  void place(const QPointF& to);
  void deliver(QWindow& window, Qt::MouseButton button, int type);
  void enter(QWindow* window);

  QObject context_;  // of what comes later
  QPointF at_, told_, heard_;
  QPointF home_, homeTold_;
  std::optional<QPointF> kept_, wanted_, finger_;
  double thrown_ = 0;
  bool lost_ = false;
  Qt::MouseButtons buttons_;
  Qt::MouseButton last_ = Qt::LeftButton;
  QPointer<QWindow> grab_, entered_;
  Replacement<Pointer::Server> server_;
  static inline int milliseconds_ = 0;  // never goes back: the toolkit remembers the last click
};

}  // namespace machine
