#include <cmath>

#include "art/Colour.h"
#include "art/Drawings.h"
#include "art/Noise.h"

namespace pictures {

QImage background(double scale) {
  const int edge = static_cast<int>(std::lround(128 * scale));
  QImage picture(edge, edge, QImage::Format_RGB32);
  for (int y = 0; y < edge; ++y) {
    for (int x = 0; x < edge; ++x) {
      const double u = (x + 0.5) / edge, v = (y + 0.5) / edge;
      const double wu = u + 0.08 * noise(u, v, 2, 2, 201), wv = v + 0.08 * noise(u, v, 2, 2, 202);
      const double cloud = fractal(wu, wv, 2, 3, 203);
      picture.setPixel(x, y, toRgb(lch(80, 26, 290) + Lab{2.2, -0.8, 1.2} * cloud));
    }
  }
  return picture;
}

}  // namespace pictures
