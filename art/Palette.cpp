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
Parts partsOf(QRgb colour) {
  return {qRed(colour), qGreen(colour), qBlue(colour)};
}

struct Counted {
  QRgb colour;
  int count;
};

/// A box of colours that may be cut in two: a range of the counted colours.
struct Box {
  std::size_t first, last;
  std::size_t part = 0;  ///< the part (red, green, blue) that spreads most
  double weight = 0;     ///< how much a cut is worth
};

void measure(Box& box, const std::vector<Counted>& colours) {
  double most = -1;
  long population = 0;
  for (std::size_t part = 0; part < 3; ++part) {
    int low = 255, high = 0;
    for (std::size_t i = box.first; i < box.last; ++i) {
      low = std::min(low, partsOf(colours[i].colour)[part]);
      high = std::max(high, partsOf(colours[i].colour)[part]);
      if (part == 0) population += colours[i].count;
    }
    if (high - low > most) {
      most = high - low;
      box.part = part;
    }
  }
  box.weight =
      box.last - box.first < 2 ? 0 : most * most * std::sqrt(static_cast<double>(population));
}

std::size_t cutOf(Box& box, std::vector<Counted>& colours) {
  const auto begin = colours.begin() + static_cast<std::ptrdiff_t>(box.first);
  const auto end = colours.begin() + static_cast<std::ptrdiff_t>(box.last);
  std::sort(begin, end, [&](const Counted& x, const Counted& y) {
    const int a = partsOf(x.colour)[box.part], b = partsOf(y.colour)[box.part];
    return a != b ? a < b : x.colour < y.colour;
  });
  long total = 0, sofar = 0;
  for (std::size_t i = box.first; i < box.last; ++i) total += colours[i].count;
  std::size_t cut = box.first + 1;
  for (; cut + 1 < box.last; ++cut) {
    sofar += colours[cut - 1].count;
    if (2 * sofar >= total) break;
  }
  return cut;
}

QRgb meanOf(const Box& box, const std::vector<Counted>& colours) {
  std::array<double, 3> sum{};
  double count = 0;
  for (std::size_t i = box.first; i < box.last; ++i) {
    count += colours[i].count;
    for (std::size_t part = 0; part < 3; ++part)
      sum[part] += static_cast<double>(colours[i].count) * partsOf(colours[i].colour)[part];
  }
  const auto byte = [&](std::size_t part) {
    return static_cast<int>(std::lround(sum[part] / count));
  };
  return qRgb(byte(0), byte(1), byte(2));
}

QList<QRgb> bestColours(const QImage& picture) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  std::vector<Counted> colours;
  for (auto it = counts.cbegin(); it != counts.cend(); ++it)
    colours.push_back({it.key(), it.value()});
  std::sort(colours.begin(), colours.end(),
            [](const Counted& x, const Counted& y) { return x.colour < y.colour; });
  std::vector<Box> boxes{{0, colours.size()}};
  measure(boxes[0], colours);
  while (boxes.size() < 256) {
    const auto worst = std::max_element(
        boxes.begin(), boxes.end(), [](const Box& x, const Box& y) { return x.weight < y.weight; });
    if (worst->weight == 0) break;
    const std::size_t cut = cutOf(*worst, colours);
    Box upper{cut, worst->last};
    worst->last = cut;
    measure(*worst, colours);
    measure(upper, colours);
    boxes.push_back(upper);
  }
  QList<QRgb> best;
  for (const Box& box : boxes) best.push_back(meanOf(box, colours));
  return best;
}

int nearestIndex(QRgb colour, const QList<QRgb>& table) {
  int best = 0, least = INT_MAX;
  const Parts wanted = partsOf(colour);
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

QImage in256Colours(const QImage& picture) {
  const QList<QRgb> table = bestColours(picture);
  QImage result(picture.size(), QImage::Format_Indexed8);
  result.setColorTable(table);
  // The rows' last bytes belong to no pixel, but are written to the file.
  std::fill_n(result.bits(), result.sizeInBytes(), uchar{0});
  QHash<QRgb, int> known;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb colour = picture.pixel(x, y);
      auto it = known.find(colour);
      if (it == known.end()) it = known.insert(colour, nearestIndex(colour, table));
      result.setPixel(x, y, static_cast<uint>(it.value()));
    }
  }
  return result;
}

}  // namespace pictures
