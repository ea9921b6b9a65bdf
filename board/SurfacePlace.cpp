#include "board/SurfacePlace.h"

#include "drawing/Rounding.h"

SurfacePlace SurfacePlace::centred(const QSizeF& control, const QSizeF& surface) {
  const QSizeF margins = (control - surface) / 2;
  return {{margins.width(), margins.height()},
          {nearest(surface.width()), nearest(surface.height())}};
}
