#pragma once

#include <QObject>
#include <QSet>
#include <QWidget>

/// The one hand of a window, which its board controls share: where it is, and whether it holds a
/// piece. What a control draws in the air is computed from it, and a press lays down what was
/// drawn.
///
/// Whenever the window may show something else under a hand at rest that holds a piece (it becomes
/// active, a dialog over it closes, it comes back from the task bar), a move of the pointer
/// follows, so that the piece is where the pointer is.
class Hand : public QObject {
 public:
  /// The hand of the window that holds the widget. It goes with the window.
  static Hand& of(const QWidget& widget);

  /// Where the hand is: logical pixels from the widget's corner, fractions kept.
  QPointF over(const QWidget& widget) const;

  /// A board control tells that a piece floats in it, or no longer does.
  void holds(const QWidget* control, bool piece);
  bool holdsPiece() const { return !controls_.isEmpty(); }

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  explicit Hand(QWidget& window);

  QWidget& window_;
  QSet<const QWidget*> controls_;  ///< those in which a piece floats
};
