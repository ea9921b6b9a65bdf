#pragma once

#include <QWidget>

/// The sign that shows where the hand is while keys move it: a ring round a cell, over everything
/// else of the window. It takes no mouse.
class HandMark : public QWidget {
 public:
  explicit HandMark(QWidget* window);

  /// Shows the ring round a point of the desktop; `cell` is the edge of a cell. Logical pixels.
  void showAt(const QPointF& global, double cell);
  /// The pointer has been moved to another place than the ring's: keys are not used any more.
  void pointerMoved(const QPointF& global);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPointF at_;
};
