#include "art/Noise.h"

#include <cmath>
#include <numbers>

namespace pictures {
namespace {

int wrapped(int i, int period) {
  const int rest = i % period;
  return rest < 0 ? rest + period : rest;
}

double fade(double t) {
  return t * t * t * (t * (t * 6 - 15) + 10);
}

double mix(double a, double b, double t) {
  return a + (b - a) * t;
}

}  // namespace

double hashed(int x, int y, std::uint32_t seed) {
  std::uint32_t h = seed * 0x9E3779B1u;
  h ^= static_cast<std::uint32_t>(x) * 0x85EBCA77u;
  h = (h ^ (h >> 15)) * 0xC2B2AE3Du;
  h ^= static_cast<std::uint32_t>(y) * 0x27D4EB2Fu;
  h = (h ^ (h >> 13)) * 0x165667B1u;
  h ^= h >> 16;
  return h / 4294967296.0;
}

double noise(double u, double v, int periodX, int periodY, std::uint32_t seed) {
  const double x = u * periodX, y = v * periodY;
  const int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
  const auto slope = [&](int i, int j) {
    const double angle =
        2 * std::numbers::pi * hashed(wrapped(i, periodX), wrapped(j, periodY), seed);
    return std::cos(angle) * (x - i) + std::sin(angle) * (y - j);
  };
  const double fx = fade(x - x0), fy = fade(y - y0);
  const double top = mix(slope(x0, y0), slope(x0 + 1, y0), fx);
  const double bottom = mix(slope(x0, y0 + 1), slope(x0 + 1, y0 + 1), fx);
  return mix(top, bottom, fy) * std::numbers::sqrt2;
}

double fractal(double u, double v, int period, int octaves, std::uint32_t seed) {
  double sum = 0, weight = 1, weights = 0;
  for (int i = 0; i < octaves; ++i, weight /= 2, period *= 2) {
    sum += weight * noise(u, v, period, period, seed + static_cast<std::uint32_t>(i));
    weights += weight;
  }
  return sum / weights * 1.4;
}

Facet facetAt(double u, double v, int count, double jitter, std::uint32_t seed) {
  const double x = u * count, y = v * count;
  const int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
  Facet facet{1e9, 1e9, 0, 0, 0};
  for (int j = y0 - 2; j <= y0 + 2; ++j) {
    for (int i = x0 - 2; i <= x0 + 2; ++i) {
      const int wi = wrapped(i, count), wj = wrapped(j, count);
      const double sx = i + 0.5 + jitter * (hashed(wi, wj, seed) - 0.5);
      const double sy = j + 0.5 + jitter * (hashed(wi, wj, seed + 1) - 0.5);
      const double distance = std::hypot(x - sx, y - sy);
      if (distance < facet.nearest) {
        facet = {distance, facet.nearest, x - sx, y - sy, hashed(wi, wj, seed + 2)};
      } else if (distance < facet.second) {
        facet.second = distance;
      }
    }
  }
  return facet;
}

}  // namespace pictures
