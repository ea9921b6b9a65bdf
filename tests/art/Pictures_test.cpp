#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <cstdlib>

#include "art/Drawings.h"
#include "art/Materials.h"
#include "art/Measure.h"
#include "art/PictureList.h"
#include "model/PENTO.h"

using namespace pictures;

namespace {

const std::filesystem::path kSource = QUINZOLITH_SOURCE_DIR;

/// How two pictures differ, over all parts of all pixels, from 0 to 255.
struct Difference {
  double mean = 0;
  double farOff = 0;  ///< share of pixels of which a part differs by more than kNear
};
constexpr int kNear = 24;

Difference compare(const QImage& one, const QImage& other) {
  const QImage a = one.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const QImage b = other.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  Difference result;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
      int largest = 0;
      for (const int gap :
           {qRed(p) - qRed(q), qGreen(p) - qGreen(q), qBlue(p) - qBlue(q), qAlpha(p) - qAlpha(q)}) {
        largest = std::max(largest, std::abs(gap));
        result.mean += std::abs(gap) / 4.0;
      }
      result.farOff += largest > kNear ? 1 : 0;
    }
  }
  const double pixels = a.width() * a.height();
  return {result.mean / pixels, result.farOff / pixels};
}

}  // namespace

// Antialiasing may round differently elsewhere, and the JPEG loses a little; a drawing that was
// changed without drawing the pictures again shows far more.
TEST(Pictures, AreWhatTheGeneratorDraws) {
  for (const PictureFile& file : allPictures(kSource)) {
    SCOPED_TRACE(file.file.string());
    const QImage kept(QString::fromStdString((kSource / file.file).string()));
    const QImage drawn = file.make();
    ASSERT_EQ(kept.size(), drawn.size());
    const Difference difference = compare(kept, drawn);
    EXPECT_LT(difference.mean, 1.0);
    EXPECT_LT(difference.farOff, 0.002);
  }
  QFile svg(QString::fromStdString((kSource / "pictures/quinzolith.svg").string()));
  ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
  EXPECT_EQ(svg.readAll(), programIconSvg());
}

// From cell to cell a step must not show: crossing the edge changes hardly more than the strongest
// line inside (bamboo's rods meet there as they do inside, but no two joints are the same).
TEST(Textures, HaveNoSeam) {
  constexpr double kAsMuch = 1.1;
  for (int t = 0; t < PENTO::kTypes; ++t) {
    const QImage picture = material(t).image(64);
    const auto step = [&](int x0, int y0, int x1, int y1) {
      return difference(toLab(picture.pixel(x0, y0)), toLab(picture.pixel(x1, y1)));
    };
    double acrossEdge = 0, downEdge = 0, most = 0;
    for (int i = 0; i < 64; ++i) {
      acrossEdge += step(63, i, 0, i);
      downEdge += step(i, 63, i, 0);
    }
    for (int line = 0; line < 63; ++line) {
      double across = 0, down = 0;
      for (int i = 0; i < 64; ++i) {
        across += step(line, i, line + 1, i);
        down += step(i, line, i, line + 1);
      }
      most = std::max({most, across, down});
    }
    EXPECT_LE(acrossEdge, most * kAsMuch) << pentominoLetter(t);
    EXPECT_LE(downEdge, most * kAsMuch) << pentominoLetter(t);
  }
}

TEST(Textures, StayApartForEveryEye) {
  for (const Sight sight : kSights) {
    const ClosestPair closest = closestPair(sight, true);
    EXPECT_GE(closest.distance, sight == Sight::Plain ? 12 : 8)
        << sightName(sight) << ": " << closest.first << " and " << closest.second;
  }
}

TEST(Textures, LetWhiteOutlinesShow) {
  for (int t = 0; t < PENTO::kTypes; ++t) EXPECT_LT(measuredMean(t).L, 82) << t;
}

// Pairs of the published test data for CIEDE2000.
TEST(Colour, DistancesAreThePublishedOnes) {
  EXPECT_NEAR(difference({50, 2.6772, -79.7751}, {50, 0, -82.7485}), 2.0425, 1e-4);
  EXPECT_NEAR(difference({50, -1, 2}, {50, 0, 0}), 2.3669, 1e-4);
  EXPECT_NEAR(difference({50, 2.49, -0.001}, {50, -2.49, 0.0011}), 7.2195, 1e-4);
  EXPECT_NEAR(difference({50, 2.5, 0}, {61, -5, 29}), 22.8977, 1e-4);
  EXPECT_NEAR(difference({2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}), 0.9082, 1e-4);
}

TEST(PieceButtons, DrawTheirPiecesOnWholePixelsWithRoomForTheBevel) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    for (int type = 0; type < PENTO::kTypes; ++type) {
      const QImage picture = pieceButton(type, scale);
      const int margin = static_cast<int>(3 * scale);
      for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
          const bool inner = x >= margin && y >= margin && x < picture.width() - margin &&
                             y < picture.height() - margin;
          if (!inner) {
            ASSERT_EQ(qAlpha(picture.pixel(x, y)), 0) << type << " at " << scale;
          }
        }
      }
    }
  }
}
