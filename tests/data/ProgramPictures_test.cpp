#include <gtest/gtest.h>

#include <QImage>

#include "platform/DensePicture.h"

// Resources of a static library reach a program only if the link pulls them in.
TEST(ProgramPictures, AreFoundByWhateverLinksThem) {
  EXPECT_EQ(QImage(":/pictures/splash.png").size(), QSize(166, 230));
  EXPECT_EQ(QImage(":/pictures/icons/rocket.png").size(), QSize(32, 32));
  EXPECT_EQ(QImage(":/pictures/icons/rocket@2x.png").size(), QSize(64, 64));
  EXPECT_EQ(QImage(":/pictures/waytogo256.bmp").format(), QImage::Format_Indexed8);
  EXPECT_EQ(QImage(":/pictures/button-11@1.5x.png").size(), QSize(110, 72));
}

TEST(ProgramPictures, AreDenserOnADenseScreenAndOfTheSameSize) {
  for (const QString file : {"splash.png", "waytogo.png", "waytogo256.bmp", "option-email.png"}) {
    const QImage plain = densePicture(file, 1), dense = densePicture(file, 1.25);
    EXPECT_EQ(dense.size(), 2 * plain.size()) << file.toStdString();
    EXPECT_EQ(dense.deviceIndependentSize(), plain.deviceIndependentSize()) << file.toStdString();
  }
}

TEST(ProgramPictures, AreOfTheNextDensityAndThoseThatAreTiledOfTheNearest) {
  const auto width = [](const char* name, double ratio, Fit fit) {
    return densePicture(name, ratio, fit).width();
  };
  const std::vector<double> ratios{0.5, 1, 1.25, 1.5, 1.75, 2, 3};
  const auto widths = [&](const char* name, Fit fit) {
    std::vector<int> all;
    for (const double ratio : ratios) all.push_back(width(name, ratio, fit));
    return all;
  };
  const int button = width("button-1.png", 1, Fit::Scaled);
  const int tile = width("background.png", 1, Fit::Tiled);
  const int between = (button * 3 + 1) / 2;
  const std::vector<int> buttons{button,     button,     between,   between,
                                 button * 2, button * 2, button * 2};
  EXPECT_EQ(widths("button-1.png", Fit::Scaled), buttons);
  EXPECT_EQ(widths("background.png", Fit::Tiled),
            (std::vector<int>{tile, tile, tile, tile * 2, tile * 2, tile * 2, tile * 2}));
  EXPECT_EQ(widths("hand.png", Fit::Exact), (std::vector<int>{16, 32, 40, 48, 56, 64, 96}));
}
