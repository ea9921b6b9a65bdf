#pragma once

#include <cstdint>

/// Smooth pseudo-random fields over the unit square that repeat without a seam: what is at u = 1 is
/// what is at u = 0, and likewise for v. Everything follows from the seed alone.
namespace pictures {

/// A number in [0, 1) for a lattice point.
double hashed(int x, int y, std::uint32_t seed);

/// Gradient noise with `periodX` by `periodY` lattice cells over the unit square, about -1 to 1.
/// Periods are at least 2.
double noise(double u, double v, int periodX, int periodY, std::uint32_t seed);

/// `octaves` layers of noise, each with twice the lattice and half the weight; about -1 to 1.
double fractal(double u, double v, int period, int octaves, std::uint32_t seed);

/// Where a point stands among scattered seeds, one in each cell of a `count` by `count` lattice.
struct Facet {
  double nearest = 0;  ///< distance to the nearest seed, in lattice cells
  double second = 0;   ///< distance to the second nearest
  double du = 0;       ///< from the nearest seed to the point, in lattice cells
  double dv = 0;
  double chance = 0;  ///< a number in [0, 1) that belongs to the nearest seed
};
/// `jitter` 0 puts the seeds in the middle of their cells, 1 anywhere in them.
Facet facetAt(double u, double v, int count, double jitter, std::uint32_t seed);

}  // namespace pictures
