#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>

#include "art/Colour.h"
#include "art/Drawings.h"
#include "art/IconMarks.h"
#include "art/Materials.h"
#include "art/Outline.h"
#include "art/PuzzleIcons.h"
#include "catalogue/Catalogue.h"
#include "drafts/Drawing.h"

namespace pictures {
namespace {

constexpr int kEdge = 32;
constexpr int kLargestCell = 9;
constexpr int kBoxCell = 3;  // of all boxes, so that a large one looks larger than a tiny one

/// An icon's colours: one above and one below a height, which is a part of the shape's own.
struct Tint {
  Lab upper, lower;
  double border = 1;
};

Tint plain(const Lab& colour) {
  return {colour, colour, 1};
}

bool isBox(const std::string& iconKey) {
  return iconKey.ends_with("box");
}

bool isPentomino(const std::string& iconKey) {
  return iconKey.starts_with("pento");
}

Tint tintOf(const std::string& iconKey) {
  static const std::map<std::string, Tint> tints{
      {"bluecircle", plain(lch(48, 58, 275))},
      {"critter", plain(lch(62, 58, 130))},
      {"ten", plain(lch(60, 62, 50))},
      {"plus", plain(lch(50, 66, 28))},
      {"smile", plain(lch(84, 70, 88))},
      {"coffee", plain(lch(42, 34, 58))},
      {"tinytriangle", plain(lch(62, 38, 190))},
      {"tinybox", plain(lch(60, 44, 70))},
      {"donut", plain(lch(65, 42, 0))},
      {"triangle", plain(lch(68, 60, 65))},
      {"smallbox", plain(lch(57, 42, 62))},
      {"arrow", plain(lch(52, 52, 265))},
      {"q", plain(lch(46, 56, 300))},
      {"o", plain(lch(52, 52, 345))},
      {"largebox", plain(lch(50, 42, 54))},
      {"face", plain(lch(72, 36, 62))},
      {"rocket", plain(lch(50, 60, 30))},
      {"eight", plain(lch(36, 12, 280))},
      {"largetriangle", plain(lch(56, 50, 145))},
      {"square", plain(lch(58, 36, 245))},
      {"plane", plain(lch(66, 30, 240))},
      {"question", plain(lch(46, 60, 20))},
      {"christmas", {lch(48, 46, 150), lch(38, 34, 55), 0.86}},
      {"house", {lch(45, 52, 32), lch(80, 22, 85), 0.4}},
      {"pento", plain(lch(46, 52, 290))}};
  const auto found = tints.find(iconKey);
  if (found != tints.end()) return found->second;
  if (isPentomino(iconKey))
    return plain(meanColour(std::stoi(iconKey.substr(5)) - 1));  // "pento01" is of type 0
  return plain(lch(52, 50, 265));
}

/// The cells of a puzzle's drawing.
Cells drawnIn(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  Cells cells;
  for (const solver::Cell cell : puzzle::readDrawing(text).shape.cells())
    cells.emplace_back(cell.x, cell.y);
  return cells;
}

Cells shapeOf(const std::string& iconKey, const std::filesystem::path& puzzles) {
  const auto& entries = iconEntries();
  const auto entry = std::find_if(entries.begin(), entries.end(),
                                  [&](const IconEntry& e) { return e.icon == iconKey; });
  if (entry->puzzle.empty()) return cellsOf({".##", "##.", ".#."}, '#');
  return drawnIn(puzzles / (entry->puzzle + ".txt"));
}

/// A shape on an icon's pixels, and how each of them is lit. Edges are hard, for the mask. A
/// pentomino shows its five squares, whatever their size, and a box the tape that closes it; what
/// else there is, is plain, since the cells of most shapes are too small for lines between them.
class Relief {
 public:
  Relief(const std::string& iconKey, const Cells& cells, int scale)
      : cells_(cells),
        box_(bounds(cells)),
        line_(scale),
        edge_(kEdge * scale),
        taped_(isBox(iconKey)) {
    const int largest = (isBox(iconKey) ? kBoxCell : kLargestCell) * scale;
    cell_ = std::min(largest, (edge_ - 2 * line_) / std::max(box_.width(), box_.height()));
    if (isPentomino(iconKey))
      square_ =
          cell_ * static_cast<int>(std::lround(std::sqrt(static_cast<double>(cells.size()) / 5)));
    origin_ = QPoint(edge_ - cell_ * box_.width(), edge_ - cell_ * box_.height()) / 2;
  }

  int edge() const { return edge_; }

  bool inside(int x, int y) const {
    if (x < origin_.x() || y < origin_.y()) return false;
    const QPoint at((x - origin_.x()) / cell_ + box_.left(),
                    (y - origin_.y()) / cell_ + box_.top());
    return std::find(cells_.begin(), cells_.end(), at) != cells_.end();
  }

  bool onContour(int x, int y) const {
    const int reach = line_ * line_ + line_ / 2;
    for (int dy = -line_; dy <= line_; ++dy)
      for (int dx = -line_; dx <= line_; ++dx)
        if (dx * dx + dy * dy <= reach && inside(x + dx, y + dy)) return true;
    return false;
  }

  /// How much lighter than the plain colour, in L.
  double lightAt(int x, int y) const {
    if (!inside(x, y - line_) || !inside(x - line_, y)) return 14;
    if (!inside(x, y + line_) || !inside(x + line_, y)) return -13;
    const bool between =
        square_ > 0 && ((x - origin_.x()) % square_ < line_ || (y - origin_.y()) % square_ < line_);
    return between ? -8 : onTape(x) ? 16 : 0;
  }

  /// In rows and columns of the shape, negative beyond its left or top side.
  QPoint cellAt(int x, int y) const {
    const auto cellOf = [this](int pixel) { return pixel < 0 ? -1 : pixel / cell_; };
    return {cellOf(x - origin_.x()), cellOf(y - origin_.y())};
  }

  /// The middle of a cell, half as wide as the cell.
  bool isMiddle(int x, int y) const {
    const int rim = cell_ / 4, across = (x - origin_.x()) % cell_, down = (y - origin_.y()) % cell_;
    return std::min(across, down) >= rim && std::max(across, down) < cell_ - rim;
  }

  /// In the disc round the shape's middle that leaves a ring.
  bool inDisc(int x, int y) const {
    const double across = x + 0.5 - edge_ / 2.0, down = y + 0.5 - edge_ / 2.0;
    return std::hypot(across, down) < 1.62 * cell_;
  }

  /// 0 at the shape's top, 1 at its bottom.
  double heightAt(int y) const {
    return static_cast<double>(y - origin_.y()) / (cell_ * box_.height());
  }

 private:
  /// The tape is as wide as the middle cell.
  bool onTape(int x) const { return taped_ && (x - origin_.x()) / cell_ == (box_.width() - 1) / 2; }

  Cells cells_;
  QRect box_;
  int line_, edge_, cell_ = 1;
  bool taped_;
  int square_ = 0;  // pixels of one of a pentomino's five squares; 0: it is none
  QPoint origin_;
};

/// One icon's colours, pixel by pixel.
class IconPaint {
 public:
  IconPaint(const std::string& iconKey, const Relief& relief)
      : relief_(relief), tint_(tintOf(iconKey)), marks_(iconMarks(iconKey)) {}

  QRgb at(int x, int y) const {
    const char mark = marks_.at(relief_.cellAt(x, y));
    if (relief_.inside(x, y)) return toRgb(mark == 'e' ? eye(x, y) : face(mark, x, y));
    if (mark == 'i') return toRgb(knot());
    if (!relief_.onContour(x, y)) return Catalogue::kIconMask;
    return toRgb(mark == 'h' ? plainAt(y) : dark(y));
  }

 private:
  Lab plainAt(int y) const {
    return relief_.heightAt(y) < tint_.border ? tint_.upper : tint_.lower;
  }
  Lab dark(int y) const {
    const Lab colour = plainAt(y);
    return {std::min(colour.L * 0.35, 24.0), colour.a * 0.4, colour.b * 0.4};
  }
  Lab face(char mark, int x, int y) const {
    const Lab colour =
        mark == 'o' || (mark == 'c' && relief_.inDisc(x, y)) ? marks_.second : plainAt(y);
    if (marks_.flat) return colour;
    return colour + Lab{relief_.lightAt(x, y) + 5 - 10 * relief_.heightAt(y), 0, 0};
  }
  Lab knot() const { return {marks_.second.L - 20, marks_.second.a, marks_.second.b}; }
  Lab eye(int x, int y) const { return {relief_.isMiddle(x, y) ? 10.0 : 98.0, 0, 0}; }

  const Relief& relief_;
  Tint tint_;
  const IconMarks& marks_;
};

}  // namespace

const std::vector<IconEntry>& iconEntries() {
  static const std::vector<IconEntry> entries = [] {
    std::vector<IconEntry> all;
    for (const Catalogue::Entry& entry : Catalogue::entries())
      all.push_back({std::string(entry.icon), std::string(entry.key)});
    all.push_back({"pento", ""});
    return all;
  }();
  return entries;
}

QImage puzzleIcon(const std::string& iconKey, const std::filesystem::path& puzzles, int scale) {
  const Relief relief(iconKey, shapeOf(iconKey, puzzles), scale);
  const IconPaint paint(iconKey, relief);
  QImage picture(relief.edge(), relief.edge(), QImage::Format_RGB32);
  for (int y = 0; y < relief.edge(); ++y)
    for (int x = 0; x < relief.edge(); ++x) picture.setPixel(x, y, paint.at(x, y));
  return picture;
}

}  // namespace pictures
