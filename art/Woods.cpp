#include <cmath>
#include <numbers>

#include "art/Materials.h"
#include "art/Noise.h"

namespace pictures::materials {
namespace {

double fraction(double x) {
  return x - std::floor(x);
}

/// A year's growth: light wood darkens slowly, then turns light again within a short way.
double yearRing(double phase) {
  const double t = fraction(phase);
  return t < 0.8 ? std::pow(t / 0.8, 2.2)
                 : 0.5 + 0.5 * std::cos((t - 0.8) / 0.2 * std::numbers::pi);
}

}  // namespace

Slab pine() {
  return Slab([](double u, double v) {
    const double bend = 0.20 * noise(u, v, 2, 2, 11) + 0.04 * noise(u, v, 2, 8, 12);
    const double ring = yearRing(4 * v + bend);
    const double broad = noise(u, v, 2, 3, 14);
    const double fibre = noise(u, v, 2, 18, 13) + 0.5 * noise(u, v, 3, 30, 15);
    return lch(80, 46, 82) + Lab{-13, 7, 2} * ring + Lab{3, -1, 1} * broad +
           Lab{4.2, -1.6, 1} * fibre;
  });
}

Slab walnut() {
  return Slab([](double u, double v) {
    const double bend = 0.26 * noise(u, v, 2, 2, 26) + 0.04 * noise(u, v, 8, 2, 22);
    const double ring = yearRing(4 * u + bend);
    const double broad = noise(u, v, 3, 2, 24);
    const double fibre = noise(u, v, 18, 2, 23) + 0.5 * noise(u, v, 30, 3, 25);
    return lch(33, 28, 64) + Lab{-13, -3, -6} * ring + Lab{3.5, 1, 2} * broad +
           Lab{3.6, 1.2, 2} * fibre;
  });
}

Slab bamboo() {
  constexpr int kRods = 4;
  const auto rod = [](double u) { return static_cast<int>(std::floor(fraction(u) * kRods)); };
  const auto fromNode = [rod](double u, double v) {
    constexpr std::array<double, kRods> nodes{0.2, 0.7, 0.42, 0.92};
    const double t = fraction(v - nodes[static_cast<std::size_t>(rod(u))] + 0.5) - 0.5;
    return t;
  };
  const auto height = [fromNode](double u, double v) {
    const double across = 2 * (fraction(u * kRods) - 0.5);
    const double bulge = std::exp(-std::pow(fromNode(u, v) / 0.035, 2));
    return 0.105 * std::sqrt(std::max(0.0, 1 - across * across * 0.94)) + 0.012 * bulge;
  };
  Slab slab([rod, fromNode](double u, double v) {
    const double node = std::exp(-std::pow((fromNode(u, v) - 0.03) / 0.022, 2));
    const double fibre = noise(u, v, 12, 2, 31);
    const double tone = hashed(rod(u), 0, 33) - 0.5;
    const double across = std::abs(2 * (fraction(u * kRods) - 0.5));
    const double gap = std::pow(across, 7);
    return lch(66, 36, 120) + Lab{5, 3, 5} * tone + Lab{1.5, -1, 0} * fibre +
           Lab{-11, 4, -4} * node + Lab{-14, 0, -8} * gap;
  });
  slab.light(height, 9);
  return slab;
}

}  // namespace pictures::materials
