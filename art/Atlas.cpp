#include <QPainter>

#include "art/Drawings.h"
#include "art/Materials.h"

namespace pictures {

QImage atlas() {
  constexpr int kEdge = 64;
  QImage picture(AtlasLayout::kColumns * kEdge,
                 AtlasLayout::kTextures / AtlasLayout::kColumns * kEdge, QImage::Format_RGB32);
  QPainter painter(&picture);
  for (int t = 0; t < AtlasLayout::kTextures; ++t)
    painter.drawImage(t % AtlasLayout::kColumns * kEdge, t / AtlasLayout::kColumns * kEdge,
                      material(t).image(kEdge));
  return picture;
}

}  // namespace pictures
