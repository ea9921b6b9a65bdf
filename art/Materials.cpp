#include "art/Materials.h"

#include <array>

namespace pictures {
namespace {

struct Entry {
  Slab (*make)();
  Lab mean;
};

const std::array<Entry, AtlasLayout::kTextures>& entries() {
  static const std::array<Entry, AtlasLayout::kTextures> list{{
      {materials::pine, lch(78.5, 53, 79.4)},
      {materials::lapis, lch(39.0, 56, 288.0)},
      {materials::walnut, lch(27.0, 26, 62.0)},
      {materials::malachite, lch(49.8, 34.4, 165.3)},
      {materials::redCloth, lch(43.0, 57.0, 24.0)},
      {materials::marble, lch(77.0, 6.0, 92.0)},
      {materials::amethyst, lch(35.5, 31.0, 318.0)},
      {materials::copper, lch(54.1, 56.0, 65.0)},
      {materials::turquoise, lch(60.7, 33.3, 222.0)},
      {materials::steel, lch(48.5, 7.2, 278.0)},
      {materials::rose, lch(63.6, 23.0, 6.5)},
      {materials::bamboo, lch(63.5, 35.0, 124.5)},
      {materials::socket, lch(17.0, 14.0, 285.0)},
      {materials::bricks, lch(52.0, 38.0, 42.0)},
      {materials::grass, lch(58.0, 48.0, 135.0)},
      {materials::swirl, lch(60.0, 36.0, 300.0)},
  }};
  return list;
}

}  // namespace

Lab meanColour(int texture) {
  return entries().at(static_cast<std::size_t>(texture)).mean;
}

const Slab& material(int texture) {
  static const std::vector<Slab> slabs = [] {
    constexpr double kBelowWhite = 88;  // the outlines are white and must show
    std::vector<Slab> made;
    for (const Entry& entry : entries()) {
      made.push_back(entry.make());
      made.back().centreOn(entry.mean);
      made.back().limitLightness(kBelowWhite);
    }
    return made;
  }();
  return slabs.at(static_cast<std::size_t>(texture));
}

}  // namespace pictures
