#pragma once

#include <QPointer>
#include <functional>

#include "drawing/Surface.h"
#include "platform/PointerSurface.h"

/// A picture surface on the screen: pixels that stay as drawn, inside a border, at a whole device
/// pixel of its window, so that it is sharp at every scale.
///
/// Units:  device pixels. The outer size includes the border; the picture inside is smaller by the
///         border on each side, and pointer positions start inside the border.
/// Repaint: exposure is served from the retained pixels. `Paint` is asked for only when the box is
///         shown, resized, exposed while it is stale or gets another pixel ratio; such requests are
///         posted and merged.
class PictureBox : public PointerSurface {
 public:
  static constexpr int kSunkenBorder = 2;

  explicit PictureBox(QWidget* parent);

  /// 0 none, 1 a sunken single border two pixels wide.
  void BorderStyle(int style);
  int BorderStyle() const { return border_ > 0 ? 1 : 0; }

  /// Moves the box to `topLeft`, device pixels from its parent's corner, and gives it an outer
  /// size. The place is rounded to a whole device pixel of the window.
  void setPlace(const QPointF& topLeft, const QSize& outer);
  /// Stands the box at a whole device pixel again; for when its parent has moved.
  void layOut();
  QSize outerSize() const { return outer_; }

  /// The retained pixels. After drawing on them, present() the rectangle that changed.
  Surface& picture() { return picture_; }
  void present(const QRect& changed);

  /// What is shown is out of date: the next exposure asks for a repaint.
  void makeStale() { stale_ = true; }

  /// Outer top-left corner on the desktop, logical pixels, fractions kept.
  QPointF screenCorner() const;

  /// The pixel of the picture at a place of the box, logical pixels from its corner.
  QPointF toPicture(const QPointF& logical) const;

  /// The cursor over the box; while a dialog blocks the window the arrow is shown instead.
  void setPictureCursor(const QCursor& cursor);
  void setBlocked(bool blocked);

  std::function<void()> Paint;
  std::function<void(Button, double x, double y)> MouseDown;
  std::function<void(double x, double y)> MouseMove;
  std::function<void(Button)> DblClick;

 protected:
  void pointerMove(const QPointF& position) override;
  void pointerDown(Button button, const QPointF& position) override;
  void pointerDoubleClick(Button button, const QPointF& position) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void fitPicture();
  void requestPaint();
  void drawBorder(class QPainter& painter) const;
  void applyCursor();

  int border_ = kSunkenBorder;
  QPointF wanted_;  // device pixels from the parent's corner, as asked for
  QPointF inside_;  // device pixels from this widget's own corner to the outer corner
  QSize outer_{0, 0};
  double ratio_ = 1;
  Surface picture_;
  QCursor cursor_;
  bool blocked_ = false;
  bool requested_ = false;
  bool stale_ = false;
};
