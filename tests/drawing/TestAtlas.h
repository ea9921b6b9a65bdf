#pragma once

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <filesystem>

#include "platform/Program.h"

/// A texture picture whose every pixel is another colour, so that a pixel taken from the wrong
/// place shows. It stands in a lossless file in an installation folder of the test's own.
class TestAtlas {
 public:
  TestAtlas() {
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) picture_.setPixel(x, y, qRgb(x, y, (x * 7 + y * 13) % 256));
    QDir(folder_.path()).mkdir("tiles");
    picture_.save(folder_.filePath("tiles/tiles.bmp"));
    Program::ColorDepth = 8;  // the screen on which tiles.bmp is read
  }
  ~TestAtlas() { Program::ColorDepth = 24; }

  static constexpr int kSide = 256;
  std::filesystem::path file() const { return folder_.filePath("tiles/tiles.bmp").toStdString(); }

  /// The pixel (x, y) of texture t where tiles are s pixels wide: the nearest one of the picture.
  QRgb texel(int t, int x, int y, int s) const {
    const int atlasX = t % 4 * s + x, atlasY = t / 4 * s + y;
    return picture_.pixel(atlasX * kSide / (4 * s), atlasY * kSide / (4 * s));
  }

 private:
  QTemporaryDir folder_;
  Replacement<std::function<std::filesystem::path()>> installed_{
      Program::programFolder, [this] { return folder_.path().toStdString(); }};
  QImage picture_{kSide, kSide, QImage::Format_RGB32};
};
