#include "board/TextureAtlas.h"

#include <stdexcept>

#include "platform/Program.h"
#include "platform/Twips.h"

namespace {

constexpr Surface::Pixel kPlain = Surface::rgb(255, 255, 255);

}  // namespace

TextureAtlas::TextureAtlas(int width, int height) {
  atlas_.resize(width, height);
  showUnscaled(QImage());
}

void TextureAtlas::load(const std::filesystem::path& file, int tile) {
  tile_ = tile;
  atlas_.resize(pictures::kAtlasColumns * tile, pictures::kAtlasColumns * tile);
  atlas_.clear(kPlain);
  plain_ = true;
  const QImage picture(QString::fromStdString(file.string()));
  if (picture.isNull())
    throw std::runtime_error("The texture picture cannot be read: " + file.string());
  Surface loaded;
  loaded.load(picture);
  stretchOnto(atlas_, loaded);
  plain_ = false;
}

void TextureAtlas::showUnscaled(const QImage& picture) {
  atlas_.clear(kPlain);
  plain_ = picture.isNull();
  if (!picture.isNull()) {
    Surface shown;
    shown.load(picture);
    BitBlt(atlas_, 0, 0, shown.width(), shown.height(), shown, 0, 0);
  }
  tile_ = Twips::nearest(atlas_.width() / static_cast<double>(pictures::kAtlasColumns));
}

void TextureAtlas::copyPart(int texture, int fromX, int fromY, int width, int height, Surface& to,
                            int x, int y) const {
  if (!contains(texture)) return;
  BitBlt(to, x, y, width, height, atlas_, tile_ * (texture % pictures::kAtlasColumns) + fromX,
         tile_ * (texture / pictures::kAtlasColumns) + fromY);
}

std::filesystem::path textureFile(int colorDepth) {
  return Program::installationFolder() / "tiles" /
         (colorDepth >= Program::kDeepColour ? "tiles.jpg" : "tiles.bmp");
}
