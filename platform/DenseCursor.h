#pragma once

#include <QCursor>
#include <QPixmap>
#include <QString>
#include <QWidget>

/// A cursor that shows a picture at its own density and points with that pixel of it.
QCursor pointingWith(const QPixmap& picture, const QPoint& pixel);

/// A cursor with a picture of the program's, as large and as sharp on a dense screen as the windows
/// are. It is made anew only when the density changes.
class DenseCursor {
 public:
  /// The picture ":/pictures/NAME", pointing with that pixel of its plain file.
  DenseCursor(QString name, QPoint hotSpot);

  /// The cursor for the screen that shows the widget.
  const QCursor& on(const QWidget& widget);

 private:
  QString name_;
  QPoint hotSpot_;
  double ratio_ = 0;
  QCursor cursor_;
};
