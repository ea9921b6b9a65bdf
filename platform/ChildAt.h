#pragma once

#include <QPointF>
#include <QWidget>

/// The child to which the toolkit sends what happens at a point of the widget (logical pixels);
/// null where there is none. Until Qt 6.7 it is the child at the nearest whole pixel.
inline QWidget* childAt(const QWidget& widget, const QPointF& point) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  return widget.childAt(point);
#else
  return widget.childAt(point.toPoint());
#endif
}
