#pragma once

#include <QTimer>
#include <QWidget>

#include "model/PENTO.h"

/// The sign that a piece could not be laid down: a red outline round it, for 300 ms or until the
/// next press. It lies over the surface, takes no mouse and is no part of the board's picture; it
/// moves with the piece.
class RefusalMark : public QWidget {
 public:
  explicit RefusalMark(QWidget* control);

  /// Marks a piece whose corner stands at a point of the control, in its logical pixels; `tile` is
  /// the edge of a cell, in logical pixels too.
  void mark(const PENTO& piece, const QPointF& corner, double tile);
  /// The piece has moved, or has been turned or mirrored. Nothing where no mark shows.
  void follow(const PENTO& piece, const QPointF& corner, double tile);
  void clear();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPolygonF outline_;  ///< logical pixels from the widget's corner
  QTimer timer_;
};
