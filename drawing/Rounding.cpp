#include "drawing/Rounding.h"

#include <cmath>

int nearest(double value) {
  return static_cast<int>(std::nearbyint(value));  // the default rounding mode: halves to even
}
