#include <algorithm>
#include <cmath>
#include <numbers>

#include "art/Materials.h"
#include "art/Noise.h"

namespace pictures::materials {
namespace {

/// 1 on the lines where a noise changes its sign, falling to 0 away from them.
double vein(double noiseValue, double width) {
  return std::exp(-std::pow(noiseValue / width, 2));
}

}  // namespace

Slab lapis() {
  return Slab([](double u, double v) {
    const double wu = u + 0.06 * noise(u, v, 3, 3, 41), wv = v + 0.06 * noise(u, v, 3, 3, 42);
    const double cloud = fractal(wu, wv, 3, 3, 43);
    const double gold = std::clamp((noise(wu, wv, 8, 8, 47) - 0.56) / 0.22, 0.0, 1.0);
    const double pale = vein(fractal(wu, wv, 2, 2, 46), 0.07);
    return lch(38, 60, 288) + Lab{9, -4, 3} * cloud + Lab{7, -5, 10} * pale +
           Lab{22, -10, 60} * gold;
  });
}

Slab malachite() {
  return Slab([](double u, double v) {
    const double wu = u + 0.03 * noise(u, v, 5, 5, 51), wv = v + 0.03 * noise(u, v, 5, 5, 52);
    const double hills = noise(wu, wv, 2, 2, 57) + 0.25 * noise(wu, wv, 3, 3, 54);
    const double band = std::sin(2 * std::numbers::pi * 3.1 * hills);
    const double broad = std::sin(2 * std::numbers::pi * 1.3 * hills + 1);
    return lch(50, 34, 165) + Lab{8.5, -5, 2} * band + Lab{6, -4, -1} * broad;
  });
}

Slab marble() {
  return Slab([](double u, double v) {
    const double warp = fractal(u, v, 2, 3, 61), other = fractal(u, v, 3, 2, 62);
    const double across = std::sin(std::numbers::pi * (u + v + 0.22 * warp));
    const double back = std::sin(std::numbers::pi * (2 * u - v + 0.30 * other));
    const double main = vein(across, 0.13 + 0.10 * std::abs(other));
    const double haze = vein(across + 0.12, 0.42);
    const double side = vein(back, 0.09) * std::clamp(0.6 + 1.2 * warp, 0.0, 1.0);
    return lch(82, 6, 88) + Lab{-36, 1, -2} * main + Lab{-11, 0.5, 0} * haze +
           Lab{-20, 1, -1} * side + Lab{2, 0, 0} * other;
  });
}

Slab amethyst() {
  return Slab([](double u, double v) {
    const Facet facet = facetAt(u, v, 3, 1.0, 78);
    const double turn = 2 * std::numbers::pi * facet.chance;
    const double tilt = std::cos(turn) * facet.du + std::sin(turn) * facet.dv;
    const double face = std::cos(turn - 3.9);  // how far the facet looks to the light
    const double edge = std::exp(-std::pow((facet.second - facet.nearest) / 0.09, 2));
    const double core = fractal(u, v, 4, 2, 75);
    return lch(36, 32, 318) + Lab{9, 3, -4} * face + Lab{9, 4, -5} * tilt + Lab{15, -3, 4} * edge +
           Lab{2, 1, -1} * core;
  });
}

Slab turquoise() {
  return Slab([](double u, double v) {
    const double wu = u + 0.07 * noise(u, v, 3, 3, 81), wv = v + 0.07 * noise(u, v, 3, 3, 82);
    const double web = vein(noise(wu, wv, 3, 3, 83), 0.16);
    const double far = vein(noise(wu + 0.37, wv + 0.21, 4, 4, 85), 0.20);
    const double depth = noise(u, v, 2, 2, 84);
    return lch(57, 34, 224) + Lab{14, -6, 5} * web + Lab{7, -4, 2} * far + Lab{5, -2, 3} * depth;
  });
}

}  // namespace pictures::materials
