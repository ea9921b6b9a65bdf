#include "art/Measure.h"

#include <cstdio>

#include "art/Materials.h"
#include "model/PENTO.h"

namespace pictures {
namespace {

template <typename... Values>
std::string line(const char* format, Values... values) {
  char text[160];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

}  // namespace

Lab measuredMean(int texture) {
  const QImage picture = material(texture).image(64);
  Lab sum;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) sum = sum + toLab(picture.pixel(x, y));
  return sum * (1.0 / (picture.width() * picture.height()));
}

ClosestPair closestPair(Sight sight, bool withEmptyCell) {
  ClosestPair closest{0, 0, 1e9};
  const int count = PENTO::kTypes + (withEmptyCell ? 1 : 0);
  for (int i = 0; i < count; ++i) {
    for (int j = 0; j < i; ++j) {
      const double distance =
          difference(seenBy(sight, measuredMean(i)), seenBy(sight, measuredMean(j)));
      if (distance < closest.distance) closest = {j, i, distance};
    }
  }
  return closest;
}

std::string distanceReport() {
  const auto name = [](int texture) {
    return texture == AtlasLayout::kEmptyCell ? '.' : pentominoLetter(texture);
  };
  std::string report = "texture      L      a      b\n";
  for (int t = 0; t <= AtlasLayout::kEmptyCell; ++t) {
    const Lab mean = measuredMean(t);
    report += line("%c       %6.1f %6.1f %6.1f\n", name(t), mean.L, mean.a, mean.b);
  }
  report += "\nsmallest CIEDE2000      pieces        with the empty cell\n";
  for (const Sight sight : kSights) {
    const ClosestPair pieces = closestPair(sight, false), all = closestPair(sight, true);
    report += line("%-20s  %5.1f (%c %c)    %5.1f (%c %c)\n", sightName(sight), pieces.distance,
                   name(pieces.first), name(pieces.second), all.distance, name(all.first),
                   name(all.second));
  }
  return report;
}

}  // namespace pictures
