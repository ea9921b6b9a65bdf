#pragma once

#include <vector>

#include "drawing/DirtyRectangle.h"
#include "drawing/FloatingCover.h"
#include "drawing/Surface.h"
#include "drawing/TextureAtlas.h"
#include "model/PENTOGRID.h"

/// Composes the picture of a board, off screen, over a rectangle of its drawing surface:
/// background, cells, white outlines, floating piece. Background under cells and cells under
/// the floating piece are not painted: each pixel is written about once.
///
/// Units:  device pixels. Everything stands in the drawing surface's own positions, so tiles line
///         up whatever the rectangle is.
class Composition {
 public:
  /// What is to be seen.
  struct Scene {
    const PENTOGRID* grid = nullptr;  ///< null: background only
    const TextureAtlas* atlas = nullptr;
    const PENTO* floating = nullptr;  ///< its position is in pixels; null: none is drawn
  };

  Composition();

  /// The picture that is tiled behind the cells. A null picture leaves the plain fill, in tiles of
  /// the last size.
  void background(const QImage& picture);
  QImage background() const { return backgroundPicture_; }

  /// Composes the rectangle and copies it onto the surface: what a moving piece dirties in one
  /// block transfer, a whole board in bands, so that the buffer stays in the cache and small.
  void draw(const Scene& scene, const DirtyRectangle& area, Surface& onto);

 private:
  /// One visible cell: where it stands in the buffer and what it shows.
  struct Spot {
    int x, y;
    int column, row;
    std::int32_t id;
    int texture;  ///< kNoTexture: the background shows
  };
  static constexpr int kNoTexture = -1;

  void drawBand(const Scene& scene, const DirtyRectangle& band, Surface& onto);
  void collectSpots(const Scene& scene, const DirtyRectangle& area);
  int textureAt(const Scene& scene, int column, int row, std::int32_t id) const;
  void PaintBackground(const Scene& scene, const DirtyRectangle& area, const FloatingCover& cover);
  void PaintCells(const Scene& scene, const FloatingCover& cover);
  void PaintBorders(const Scene& scene);
  void PaintFloatingPento(const Scene& scene, const DirtyRectangle& area);
  void fillWithBackground(const DirtyRectangle& area, int x, int y, int width, int height);

  Surface pctBack_;
  Surface pctBackground_;
  QImage backgroundPicture_;
  std::vector<Spot> spots_;
};
