#include "art/Slab.h"

#include <algorithm>
#include <cmath>

namespace pictures {
namespace {

constexpr double kLittle = 1.0 / Slab::kSize;

}  // namespace

Slab::Slab(const std::function<Lab(double u, double v)>& colour) {
  samples_.reserve(kSize * kSize);
  for (int y = 0; y < kSize; ++y)
    for (int x = 0; x < kSize; ++x)
      samples_.push_back(colour((x + 0.5) / kSize, (y + 0.5) / kSize));
}

void Slab::light(const std::function<double(double u, double v)>& height, double steepness) {
  std::size_t i = 0;
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x, ++i) {
      const double u = (x + 0.5) / kSize, v = (y + 0.5) / kSize;
      const double across = height(u + kLittle, v) - height(u - kLittle, v);
      const double down = height(u, v + kLittle) - height(u, v - kLittle);
      const double slope = (0.6 * across + 0.8 * down) / (2 * kLittle);
      samples_[i].L += steepness * std::tanh(slope);
    }
  }
}

void Slab::centreOn(const Lab& target) {
  // Clipping moves the mean again, so approach it in a few steps.
  for (int round = 0; round < 4; ++round) {
    Lab sum;
    for (const Lab& sample : samples_) {
      const auto parts = toSrgb(sample);
      sum = sum + toLab(qRgb(static_cast<int>(std::lround(parts[0] * 255)),
                             static_cast<int>(std::lround(parts[1] * 255)),
                             static_cast<int>(std::lround(parts[2] * 255))));
    }
    const Lab step = target + sum * (-1.0 / static_cast<double>(samples_.size()));
    for (Lab& sample : samples_) sample = sample + step;
  }
}

void Slab::limitLightness(double lightness) {
  constexpr double kKnee = 6;
  for (Lab& sample : samples_) {
    const double over = sample.L - (lightness - kKnee);
    if (over > 0) sample.L = lightness - kKnee * std::exp(-over / kKnee);
  }
}

const Lab& Slab::at(int x, int y) const {
  return samples_[static_cast<std::size_t>(y * kSize + x)];
}

QImage Slab::image(int edge) const {
  QImage picture(kSize, kSize, QImage::Format_RGB32);
  for (int y = 0; y < kSize; ++y)
    for (int x = 0; x < kSize; ++x) picture.setPixel(x, y, toRgb(at(x, y)));
  if (edge == kSize) return picture;
  return picture.scaled(edge, edge, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_RGB32);
}

}  // namespace pictures
