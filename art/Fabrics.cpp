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

/// A plain weave of `kThreads` threads each way: over, under, over.
struct Thread {
  bool lying = false;  ///< the thread on top runs from left to right
  double height = 0;   ///< 0 to 1
};
Thread weave(double u, double v) {
  constexpr int kThreads = 4;
  const double x = fraction(u) * kThreads, y = fraction(v) * kThreads;
  const bool lying = (static_cast<int>(x) + static_cast<int>(y)) % 2 == 0;
  const double along = 2 * fraction(lying ? x : y) - 1, across = 2 * fraction(lying ? y : x) - 1;
  const double round = std::sqrt(std::max(0.0, 1 - 0.97 * across * across));
  return {lying, round * (1 - 0.6 * along * along)};
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
    const Thread thread = weave(u, v);
    const double strand = thread.lying ? noise(u, v, 2, 24, 112) : noise(u, v, 24, 2, 113);
    return lch(42, 57, 24) + Lab{19, 6, 4} * (thread.height - 0.5) +
           Lab{3.5, 1, 2} * (thread.lying ? 1 : -1) + Lab{2.5, 1, 1} * strand;
  });
  slab.light([](double u, double v) { return 0.06 * weave(u, v).height; }, 5);
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
