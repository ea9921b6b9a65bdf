#pragma once

#include <QMouseEvent>
#include <QWidget>

/// A widget that hears of the pointer above it as if no button were held down. The toolkit sends
/// every move, and further presses, to the widget in which a button went down, until it is
/// released; here they go to whichever PointerSurface of the window is under the pointer. Releases
/// do nothing.
class PointerSurface : public QWidget {
 public:
  explicit PointerSurface(QWidget* parent);

  /// Buttons by their usual numbers; others are not reported.
  enum Button { kNone = 0, kLeft = 1, kRight = 2, kMiddle = 4 };

  /// Lets the surface of a window that is under a point of the desktop (logical pixels) hear of a
  /// move to it; none may be there.
  static void moveUnder(QWidget& window, const QPointF& global);

 protected:
  /// `position` is in logical pixels of this widget.
  virtual void pointerMove(const QPointF& position) = 0;
  virtual void pointerDown(Button button, const QPointF& position) = 0;
  virtual void pointerDoubleClick(Button button, const QPointF& position) = 0;

  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent*) override {}

 private:
  static PointerSurface* under(const QWidget& window, const QPointF& global);
};
