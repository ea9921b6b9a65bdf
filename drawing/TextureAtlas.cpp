#include "drawing/TextureAtlas.h"

#include <stdexcept>

#include "drawing/Rounding.h"

namespace {

constexpr Surface::Pixel kPlain = Surface::rgb(255, 255, 255);

/// A pixel for each texture: the empty cell dark, the pieces apart from it and from each other.
QImage plainColours() {
  constexpr int kColumns = AtlasLayout::kColumns;
  QImage colours(kColumns, AtlasLayout::kTextures / kColumns, QImage::Format_RGB32);
  for (int texture = 0; texture < AtlasLayout::kTextures; ++texture)
    colours.setPixelColor(texture % kColumns, texture / kColumns,
                          texture < AtlasLayout::kEmptyCell
                              ? QColor::fromHsv(30 * texture, 200, texture % 2 == 0 ? 230 : 160)
                              : QColor(40, 40, 60));
  return colours;
}

}  // namespace

TextureAtlas::TextureAtlas(int width, int height) {
  atlas_.resize(width, height);
  showUnscaled(QImage());
}

void TextureAtlas::load(const QImage& picture, int tile) {
  tile_ = tile;
  atlas_.resize(AtlasLayout::kColumns * tile, AtlasLayout::kColumns * tile);
  if (!picture.isNull()) textures_.load(picture);
  if (textures_.width() == 0) textures_.load(plainColours());
  stretchOnto(atlas_, textures_);
  loaded_ = true;
}

void TextureAtlas::load(const std::filesystem::path& file, int tile) {
  const QImage picture(QString::fromStdString(file.string()));
  load(picture, tile);
  if (picture.isNull())
    throw std::runtime_error("The texture picture cannot be read: " + file.string());
}

void TextureAtlas::showUnscaled(const QImage& picture) {
  atlas_.clear(kPlain);
  given_ = picture;
  loaded_ = false;
  if (!picture.isNull()) {
    Surface shown;
    shown.load(picture);
    BitBlt(atlas_, 0, 0, shown.width(), shown.height(), shown, 0, 0);
  }
  tile_ = nearest(atlas_.width() / static_cast<double>(AtlasLayout::kColumns));
}

bool TextureAtlas::holdsWhole(int texture) const {
  return tile_ * (texture % AtlasLayout::kColumns + 1) <= atlas_.width() &&
         tile_ * (texture / AtlasLayout::kColumns + 1) <= atlas_.height();
}

void TextureAtlas::copyPart(int texture, int fromX, int fromY, int width, int height, Surface& to,
                            int x, int y) const {
  if (!contains(texture)) return;
  BitBlt(to, x, y, width, height, atlas_, tile_ * (texture % AtlasLayout::kColumns) + fromX,
         tile_ * (texture / AtlasLayout::kColumns) + fromY);
}
