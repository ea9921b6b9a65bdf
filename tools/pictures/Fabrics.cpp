#include <algorithm>
#include <cmath>
#include <numbers>

#include "tools/pictures/Materials.h"
#include "tools/pictures/Noise.h"

namespace pictures::materials {
namespace {

double fraction(double x) {
  return x - std::floor(x);
}

/// Height of a plain weave of `kThreads` threads each way: over, under, over.
double weave(double u, double v) {
  constexpr int kThreads = 4;
  const double x = fraction(u) * kThreads, y = fraction(v) * kThreads;
  const int i = static_cast<int>(x), j = static_cast<int>(y);
  const bool lying = (i + j) % 2 == 0;
  const double along = 2 * (lying ? fraction(x) : fraction(y)) - 1;
  const double across = 2 * (lying ? fraction(y) : fraction(x)) - 1;
  return std::sqrt(std::max(0.0, 1 - 0.96 * across * across)) * (1 - 0.55 * along * along);
}

/// Height of a padded cloth stitched along diagonals: 0 on the seams, 1 on a cushion's middle.
double cushions(double u, double v) {
  const double a = std::abs(std::sin(2 * std::numbers::pi * (u + v) / 1.0));
  const double b = std::abs(std::sin(2 * std::numbers::pi * (u - v) / 1.0));
  return std::pow(a * b, 0.45);
}

}  // namespace

Slab redCloth() {
  Slab slab([](double u, double v) {
    const double h = weave(u, v);
    const double tone = noise(u, v, 4, 4, 111);
    return lch(42, 57, 24) + Lab{17, 6, 4} * (h - 0.5) + Lab{2, 1, 1} * tone;
  });
  slab.light([](double u, double v) { return 0.06 * weave(u, v); }, 6);
  return slab;
}

Slab rose() {
  Slab slab([](double u, double v) {
    const double h = cushions(u, v);
    const double sheen = noise(u, v, 2, 2, 121);
    return lch(64, 23, 6) + Lab{13, -3, -1} * (h - 0.6) + Lab{1.5, 0, 0} * sheen;
  });
  slab.light([](double u, double v) { return 0.10 * cushions(u, v); }, 9);
  return slab;
}

}  // namespace pictures::materials
