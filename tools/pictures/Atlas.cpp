#include <QPainter>

#include "tools/pictures/Drawings.h"
#include "tools/pictures/Materials.h"

namespace pictures {

QImage atlas() {
  constexpr int kEdge = 64, kColumns = 4;
  QImage picture(kColumns * kEdge, kTextures / kColumns * kEdge, QImage::Format_RGB32);
  QPainter painter(&picture);
  for (int t = 0; t < kTextures; ++t)
    painter.drawImage(t % kColumns * kEdge, t / kColumns * kEdge, material(t).image(kEdge));
  return picture;
}

}  // namespace pictures
