// Every window as the tour has just shown it, beside its picture in docs/screenshots, which
// scripts/make-screenshots makes anew.
// Usage: windows_test SHOWN_FOLDER EXPECTED_FOLDER DIFFERENCES_FOLDER
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QRegion>
#include <algorithm>
#include <array>
#include <map>

namespace {

constexpr int kCell = 4;   // pixels; what moves by a cell is seen
constexpr int kShift = 1;  // pixels by which another version of a font may move its letters

QString shownFolder, expectedFolder, differencesFolder;

/// Mean red, green and blue of a cell, its least and its greatest grey: a line that is dark and
/// light is in the last two only.
using Look = std::array<int, 5>;
constexpr Look kTolerance{5, 5, 5, 25, 25};  // of 255
/// What newer toolkits draw otherwise: arrows of the tool bar and of the scroll bar.
const std::map<QString, QRegion> kToolkits{
    {"help.png", QRegion(4, 4, 32, 30) + QRegion(80, 4, 28, 30) + QRegion(884, 40, 16, 14)}};
constexpr int kLetter = 3;  // cells: one that another version of the toolkit has moved farther

/// What lies outside of the picture counts as its edge.
Look lookOf(const QImage& picture, int left, int top) {
  Look look{0, 0, 0, 255, 0};
  for (int y = top; y < top + kCell; ++y)
    for (int x = left; x < left + kCell; ++x) {
      const QRgb pixel = picture.pixel(std::clamp(x, 0, picture.width() - 1),
                                       std::clamp(y, 0, picture.height() - 1));
      look[0] += qRed(pixel), look[1] += qGreen(pixel), look[2] += qBlue(pixel);
      look[3] = std::min(look[3], qGray(pixel)), look[4] = std::max(look[4], qGray(pixel));
    }
  for (std::size_t channel : {0, 1, 2}) look[channel] /= kCell * kCell;
  return look;
}

/// True when the cell is within what small shifts of it show.
bool agrees(const QImage& shown, const QImage& expected, int left, int top) {
  const Look wanted = lookOf(expected, left, top);
  Look least = lookOf(shown, left, top), most = least;
  for (int dy = -kShift; dy <= kShift; ++dy)
    for (int dx = -kShift; dx <= kShift; ++dx) {
      const Look found = lookOf(shown, left + dx, top + dy);
      std::ranges::transform(least, found, least.begin(),
                             [](int a, int b) { return std::min(a, b); });
      std::ranges::transform(most, found, most.begin(),
                             [](int a, int b) { return std::max(a, b); });
    }
  for (std::size_t i = 0; i < wanted.size(); ++i)
    if (wanted[i] < least[i] - kTolerance[i] || wanted[i] > most[i] + kTolerance[i]) return false;
  return true;
}

QRegion toolkits(const QString& name) {
  const auto found = kToolkits.find(name);
  return found == kToolkits.end() ? QRegion() : found->second;
}

/// The shown picture with each cell that differs in red; null when there are none but a letter's.
QImage difference(const QImage& shown, const QImage& expected, const QRegion& overlooked) {
  QImage marked = shown.convertToFormat(QImage::Format_RGB32);
  int differing = 0;
  for (int top = 0; top < shown.height(); top += kCell)
    for (int left = 0; left < shown.width(); left += kCell) {
      if (overlooked.intersects(QRect(left, top, kCell, kCell))) continue;
      if (agrees(shown, expected, left, top)) continue;
      ++differing;
      for (int y = top; y < std::min(top + kCell, shown.height()); ++y)
        for (int x = left; x < std::min(left + kCell, shown.width()); ++x)
          marked.setPixel(x, y, qRgb(255, 0, 0));
    }
  return differing > kLetter ? marked : QImage();
}

TEST(Windows, LookAsTheyDidWhenAPersonLookedAtThem) {
  const QStringList names = QDir(expectedFolder).entryList({"*.png"});
  ASSERT_EQ(QDir(shownFolder).entryList({"*.png"}), names);
  const QDir differences(differencesFolder);
  for (const QString& name : names) {
    const QImage shown(shownFolder + "/" + name), expected(expectedFolder + "/" + name);
    const bool sameSize = shown.size() == expected.size();
    const QImage marked = sameSize ? difference(shown, expected, toolkits(name)) : shown;
    if (marked.isNull()) continue;
    differences.mkpath(".");
    shown.save(differences.filePath("shown-" + name));
    expected.save(differences.filePath("expected-" + name));
    marked.save(differences.filePath("difference-" + name));
    ADD_FAILURE() << name.toStdString() << " looks different: see shown-, expected- and difference-"
                  << name.toStdString() << " in " << differencesFolder.toStdString();
  }
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (argc != 4) return 2;
  shownFolder = argv[1], expectedFolder = argv[2], differencesFolder = argv[3];
  return RUN_ALL_TESTS();
}
