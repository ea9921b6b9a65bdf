#pragma once

#include <QImage>
#include <functional>
#include <vector>

#include "art/Colour.h"

namespace pictures {

/// A seamless square of material, one board cell large, sampled at four times a texture's
/// resolution. Points are asked for as (u, v), both from 0 to 1, v downward.
class Slab {
 public:
  static constexpr int kSize = 256;  ///< samples along an edge

  explicit Slab(const std::function<Lab(double u, double v)>& colour);

  /// Adds light from the top left falling on a relief: `steepness` is the gain in L for a slope of
  /// one cell height per cell.
  void light(const std::function<double(double u, double v)>& height, double steepness);
  /// Moves all colours by the same step, so that their mean is `target`.
  void centreOn(const Lab& target);
  /// Bends colours brighter than `lightness` back below it, softly.
  void limitLightness(double lightness);

  /// The slab at `edge` x `edge` pixels, each the mean of what it covers (bigger than kSize:
  /// smoothly enlarged). Opaque RGB32.
  QImage image(int edge) const;

 private:
  const Lab& at(int x, int y) const;
  std::vector<Lab> samples_;
};

}  // namespace pictures
