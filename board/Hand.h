#pragma once

#include <QObject>
#include <QPoint>
#include <QSet>
#include <QWidget>
#include <functional>

#include "board/HandKeys.h"
#include "board/HandMark.h"
#include "board/Status.h"
#include "board/Touch.h"
#include "model/PENTO.h"

/// The one hand of a window, which its board controls share: where it is, and whether it holds a
/// piece. What a control draws in the air is computed from it, and a press lays down what was
/// drawn. The mouse moves it, and so do keys and fingers.
///
/// Whenever the window may show something else under a hand at rest that holds a piece (it becomes
/// active, a dialog over it closes, it comes back from the task bar), a move of the pointer
/// follows, so that the piece is where the pointer is.
class Hand : public QObject {
 public:
  /// Where a piece lay, and how, before it was picked up.
  struct Origin {
    PentoRef piece;
    PENTOWINDOW* control = nullptr;
    QPoint cell;
    int rotations = 0, flips = 0;
  };

  /// The hand of the window that holds the widget. It goes with the window.
  static Hand& of(const QWidget& widget);

  /// Where the hand is: logical pixels from the widget's corner, fractions kept.
  QPointF over(const QWidget& widget) const;
  /// Puts the hand to a point of the desktop, logical pixels; a move follows. Where the display
  /// server does not let the program place the pointer, the hand is there all the same until the
  /// pointer moves.
  void put(const QPointF& global);

  /// A board control tells that a piece floats in it, or no longer does.
  void holds(const QWidget* control, bool piece);
  bool holdsPiece() const { return !controls_.isEmpty(); }
  void tookFrom(const Origin& origin) { origin_ = origin; }
  const Origin& origin() const { return origin_; }

  /// Lets keys and fingers move the hand between the window's boards. `tray` may be null.
  void serve(PENTOWINDOW& board, PENTOWINDOW* tray);
  const HandKeys& keys() const { return keys_; }
  const Touch& touch() const { return touch_; }
  void toBoard();  ///< moves the hand onto the board, by key
  /// True when the key has moved or used the hand; then a mark shows where it is, until the pointer
  /// is moved.
  bool keyPressed(const QKeyEvent& event);
  bool marked() const { return mark_->isVisible(); }
  void pointerMoved();

  /// Tells a screen reader what has happened; its idea of the boards is true again. Where there is
  /// none the words are not asked for.
  void say(const std::function<QString()>& words);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  explicit Hand(QWidget& window);
  void showMark();

  QWidget& window_;
  QSet<const QWidget*> controls_;  ///< those in which a piece floats
  Origin origin_;
  HandKeys keys_;
  Touch touch_;
  HandMark* mark_;
  Status* status_;
};
