#include <algorithm>
#include <cmath>
#include <numbers>

#include "art/Materials.h"
#include "art/Noise.h"

namespace pictures::materials {
namespace {

double fraction(double x) {
  return x - std::floor(x);
}

/// Distance from the nearest edge of the brick under a point, in cells; `id` tells bricks apart.
double brick(double u, double v, int& id) {
  constexpr int kCourses = 4, kBricks = 2;
  const int course = static_cast<int>(fraction(v) * kCourses);
  const double x = fraction(u + (course % 2 == 0 ? 0 : 0.25)) * kBricks;
  id = course * kBricks + static_cast<int>(x);
  const double fx = fraction(x), fy = fraction(v * kCourses);
  return std::min(std::min(fx, 1 - fx) / kBricks, std::min(fy, 1 - fy) / kCourses);
}

}  // namespace

/// The empty cell: a shallow dark socket, shaded towards the light and lit on its far rim.
Slab socket() {
  return Slab([](double u, double v) {
    constexpr double kRim = 0.11;
    const double near = std::min(u, v), far = std::min(1 - u, 1 - v);
    const double shade = std::clamp(1 - near / kRim, 0.0, 1.0);
    const double lit = std::clamp(1 - far / kRim, 0.0, 1.0);
    const double slope = 0.5 * (u + v) - 0.5;
    return lch(17, 14, 285) + Lab{4, 1, -3} * slope +
           (near < far ? Lab{-7, 0, 3} * shade : Lab{10, 2, -7} * lit);
  });
}

Slab bricks() {
  Slab slab([](double u, double v) {
    int id = 0;
    const double mortar = 1 - std::clamp((brick(u, v, id) - 0.022) / 0.02, 0.0, 1.0);
    const double tone = hashed(id, 0, 131) - 0.5;
    return lch(50, 42, 42) + Lab{10, 3, 4} * tone + Lab{3, 1, 1} * fractal(u, v, 5, 2, 132) +
           Lab{16, -24, -22} * mortar;
  });
  slab.light(
      [](double u, double v) {
        int id = 0;
        return 0.6 * std::min(brick(u, v, id), 0.05);
      },
      6);
  return slab;
}

Slab grass() {
  return Slab([](double u, double v) {
    const double wu = u + 0.05 * noise(u, v, 3, 3, 141);
    const double blades = noise(wu, v, 9, 3, 142);
    const double tufts = noise(u, v, 3, 3, 144);
    return lch(57, 48, 134) + Lab{13, 2, 6} * blades + Lab{6, 4, 3} * tufts;
  });
}

Slab swirl() {
  return Slab([](double u, double v) {
    const double wu = u + 0.16 * noise(u, v, 2, 2, 151), wv = v + 0.16 * noise(u, v, 2, 2, 152);
    const double band =
        std::sin(2 * std::numbers::pi * (2 * wu + wv + 0.5 * noise(wu, wv, 2, 2, 153)));
    return lch(60, 36, 300) + Lab{10, -6, 8} * band;
  });
}

}  // namespace pictures::materials
