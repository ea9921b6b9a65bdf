#pragma once

#include <QPointF>
#include <QSize>

/// Where a board control's drawing surface stands inside the control: in its middle.
///
/// Units: device pixels. `corner` goes from the control's corner to the surface's outer corner,
///        halves kept; `outer` includes the surface's border.
struct SurfacePlace {
  QPointF corner;
  QSize outer;

  static SurfacePlace centred(const QSizeF& control, const QSizeF& surface);
};
