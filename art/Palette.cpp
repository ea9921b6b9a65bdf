#include <QHash>
#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <vector>

#include "art/Canvas.h"

namespace pictures {
namespace {

using Parts = std::array<int, 3>;
Parts partsOf(QRgb color) {
  return {qRed(color), qGreen(color), qBlue(color)};
}

struct Counted {
  QRgb color;
  int count;
};

/// A box of colours that may be cut in two: a range of the counted colours.
struct Box {
  std::size_t first, last;
  std::size_t part = 0;  ///< the part (red, green, blue) that spreads most
  double weight = 0;     ///< how much a cut is worth
};

void measure(Box& box, const std::vector<Counted>& colors) {
  double most = -1;
  long population = 0;
  for (std::size_t part = 0; part < 3; ++part) {
    int low = 255, high = 0;
    for (std::size_t i = box.first; i < box.last; ++i) {
      low = std::min(low, partsOf(colors[i].color)[part]);
      high = std::max(high, partsOf(colors[i].color)[part]);
      if (part == 0) population += colors[i].count;
    }
    if (high - low > most) {
      most = high - low;
      box.part = part;
    }
  }
  box.weight =
      box.last - box.first < 2 ? 0 : most * most * std::sqrt(static_cast<double>(population));
}

std::size_t cutOf(Box& box, std::vector<Counted>& colors) {
  const auto begin = colors.begin() + static_cast<std::ptrdiff_t>(box.first);
  const auto end = colors.begin() + static_cast<std::ptrdiff_t>(box.last);
  std::sort(begin, end, [&](const Counted& x, const Counted& y) {
    const int a = partsOf(x.color)[box.part], b = partsOf(y.color)[box.part];
    return a != b ? a < b : x.color < y.color;
  });
  long total = 0, sofar = 0;
  for (std::size_t i = box.first; i < box.last; ++i) total += colors[i].count;
  std::size_t cut = box.first + 1;
  for (; cut + 1 < box.last; ++cut) {
    sofar += colors[cut - 1].count;
    if (2 * sofar >= total) break;
  }
  return cut;
}

QRgb meanOf(const Box& box, const std::vector<Counted>& colors) {
  std::array<double, 3> sum{};
  double count = 0;
  for (std::size_t i = box.first; i < box.last; ++i) {
    count += colors[i].count;
    for (std::size_t part = 0; part < 3; ++part)
      sum[part] += static_cast<double>(colors[i].count) * partsOf(colors[i].color)[part];
  }
  const auto byte = [&](std::size_t part) {
    return static_cast<int>(std::lround(sum[part] / count));
  };
  return qRgb(byte(0), byte(1), byte(2));
}

QList<QRgb> bestColors(const QImage& picture) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  std::vector<Counted> colors;
  for (auto it = counts.cbegin(); it != counts.cend(); ++it)
    colors.push_back({it.key(), it.value()});
  std::sort(colors.begin(), colors.end(),
            [](const Counted& x, const Counted& y) { return x.color < y.color; });
  std::vector<Box> boxes{{0, colors.size()}};
  measure(boxes[0], colors);
  while (boxes.size() < 256) {
    const auto worst = std::max_element(
        boxes.begin(), boxes.end(), [](const Box& x, const Box& y) { return x.weight < y.weight; });
    if (worst->weight == 0) break;
    const std::size_t cut = cutOf(*worst, colors);
    Box upper{cut, worst->last};
    worst->last = cut;
    measure(*worst, colors);
    measure(upper, colors);
    boxes.push_back(upper);
  }
  QList<QRgb> best;
  for (const Box& box : boxes) best.push_back(meanOf(box, colors));
  return best;
}

int nearestIndex(QRgb color, const QList<QRgb>& table) {
  int best = 0, least = INT_MAX;
  const Parts wanted = partsOf(color);
  for (int i = 0; i < table.size(); ++i) {
    const Parts parts = partsOf(table[i]);
    int distance = 0;
    for (std::size_t part = 0; part < 3; ++part)
      distance += (parts[part] - wanted[part]) * (parts[part] - wanted[part]);
    if (distance < least) {
      least = distance;
      best = i;
    }
  }
  return best;
}

}  // namespace

QImage in256Colors(const QImage& picture) {
  const QList<QRgb> table = bestColors(picture);
  QImage result(picture.size(), QImage::Format_Indexed8);
  result.setColorTable(table);
  // The rows' last bytes belong to no pixel, but are written to the file.
  std::fill_n(result.bits(), result.sizeInBytes(), uchar{0});
  QHash<QRgb, int> known;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb color = picture.pixel(x, y);
      auto it = known.find(color);
      if (it == known.end()) it = known.insert(color, nearestIndex(color, table));
      result.setPixel(x, y, static_cast<uint>(it.value()));
    }
  }
  return result;
}

}  // namespace pictures
