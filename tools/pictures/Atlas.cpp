#include <QPainter>

#include "tools/pictures/Drawings.h"
#include "tools/pictures/Materials.h"

namespace pictures {

QImage atlas() {
  constexpr int kEdge = 64;
  QImage picture(kAtlasColumns * kEdge, kTextures / kAtlasColumns * kEdge, QImage::Format_RGB32);
  QPainter painter(&picture);
  for (int t = 0; t < kTextures; ++t)
    painter.drawImage(t % kAtlasColumns * kEdge, t / kAtlasColumns * kEdge,
                      material(t).image(kEdge));
  return picture;
}

}  // namespace pictures
