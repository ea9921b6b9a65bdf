#pragma once

#include <QCursor>

#include "drawing/TextureAtlas.h"
#include "model/PENTO.h"

/// A mouse cursor that shows a piece in its textures, for places where no surface can show it.
class PieceCursor {
 public:
  /// The piece at the atlas's tile size on a screen of that many device pixels to a logical one.
  /// `grab` is the pixel of the piece that stands under the pointer, device pixels.
  const QCursor& of(const PENTO& piece, const TextureAtlas& atlas, const QPoint& grab,
                    double ratio);

 private:
  struct Look {
    int type, rotations, flips, tile;
    QPoint grab;
    double ratio;
    bool operator==(const Look&) const = default;
  };

  Look look_{};  ///< what the cursor shows; of no tile: nothing yet
  QCursor cursor_;
};
