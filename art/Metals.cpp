#include <algorithm>
#include <cmath>

#include "art/Materials.h"
#include "art/Noise.h"

namespace pictures::materials {
namespace {

double fraction(double x) {
  return x - std::floor(x);
}

/// A raised lozenge of a tread plate, pointing along (1, 1) or (1, -1): 1 on its ridge, 0 outside.
double lozenge(double x, double y, bool rising) {
  const double along = (rising ? x - y : x + y) * 0.7071,
               across = (rising ? x + y : x - y) * 0.7071;
  const double width = 0.135 * (1 - std::pow(along / 0.40, 2));
  if (width <= 0) return 0;
  const double t = std::abs(across) / width;
  return t >= 1 ? 0 : std::pow(1 - t * t, 0.8) * std::min(1.0, width / 0.08);
}

double treads(double u, double v) {
  double sum = 0;
  for (int j = 0; j < 2; ++j) {
    for (int i = 0; i < 2; ++i) {
      const double x = 2 * (fraction(u - 0.25 - 0.5 * i + 0.5) - 0.5);
      const double y = 2 * (fraction(v - 0.25 - 0.5 * j + 0.5) - 0.5);
      sum += lozenge(x, y, (i + j) % 2 == 0);
    }
  }
  return std::min(sum, 1.0);
}

}  // namespace

Slab copper() {
  const auto dents = [](double u, double v) {
    const Facet facet = facetAt(u, v, 4, 0.75, 91);
    return 0.16 * facet.nearest * facet.nearest;
  };
  Slab slab([](double u, double v) {
    const Facet facet = facetAt(u, v, 4, 0.75, 91);
    const double glow = noise(u, v, 2, 2, 94);
    // A dent mirrors the lamp on its lower right, where it looks up to the left.
    const double mirrored = std::hypot(facet.du - 0.2, facet.dv - 0.24);
    const double spark = std::exp(-std::pow(mirrored / 0.17, 2));
    return lch(54, 54, 60) + Lab{4, 1, 3} * glow + Lab{13, -7, -2} * spark +
           Lab{4, 0, 3} * (facet.chance - 0.5);
  });
  slab.light(dents, 11);
  return slab;
}

Slab steel() {
  Slab slab([](double u, double v) {
    const double brushed = noise(u, v, 2, 10, 101);
    const double cloud = noise(u, v, 2, 2, 102);
    return lch(48, 7, 278) + Lab{2, 0, 0} * brushed + Lab{3, 0, 0.5} * cloud +
           Lab{5, 0, 0} * treads(u, v);
  });
  slab.light([](double u, double v) { return 0.05 * treads(u, v); }, 17);
  return slab;
}

}  // namespace pictures::materials
