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
  for (const QString file : {":/pictures/splash.png", ":/pictures/waytogo.png",
                             ":/pictures/waytogo256.bmp", ":/pictures/option-email.png"}) {
    const QPixmap plain = densePicture(file, 1), dense = densePicture(file, 1.25);
    EXPECT_EQ(dense.size(), 2 * plain.size()) << file.toStdString();
    EXPECT_EQ(dense.deviceIndependentSize(), plain.deviceIndependentSize()) << file.toStdString();
  }
}
