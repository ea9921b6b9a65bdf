#include "board/PieceCursor.h"

#include <QPainter>
#include <QPixmap>

#include "platform/DenseCursor.h"

namespace {

/// The piece with its corner at a point of a picture that is transparent elsewhere.
QImage pictureOf(const PENTO& piece, const TextureAtlas& atlas, const QPoint& corner,
                 const QSize& size) {
  const int s = atlas.tileWidth();
  Surface tile;
  tile.resize(s, s);
  atlas.copyTile(piece.PentoType(), tile, 0, 0);
  QImage picture(size, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  for (int i = 0; i < PENTO::kCells; ++i)
    painter.drawImage(corner + s * QPoint(piece.GridX(i), piece.GridY(i)), tile.view());
  return picture;
}

}  // namespace

const QCursor& PieceCursor::of(const PENTO& piece, const TextureAtlas& atlas, const QPoint& grab,
                               double ratio) {
  const Look look{
      piece.PentoType(), piece.RotationCount, piece.FlipCount, atlas.tileWidth(), grab, ratio};
  if (look == look_ || look.tile == 0) return cursor_;
  look_ = look;
  // A hot spot must lie inside its picture; just after a turn it may lie beside the piece.
  const QSize whole(look.tile * piece.Width(), look.tile * piece.Height());
  const QRect picture = QRect(QPoint(0, 0), whole) | QRect(grab, QSize(1, 1));
  QPixmap pixmap = QPixmap::fromImage(pictureOf(piece, atlas, -picture.topLeft(), picture.size()));
  pixmap.setDevicePixelRatio(ratio);
  cursor_ = pointingWith(pixmap, grab - picture.topLeft());
  return cursor_;
}
