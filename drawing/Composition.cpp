#include "drawing/Composition.h"

#include <algorithm>

namespace {

constexpr int kBackgroundSize = 128;
constexpr Surface::Pixel kPlainBackground = Surface::rgb(160, 160, 208);
constexpr Surface::Pixel kOutline = Surface::rgb(255, 255, 255);
constexpr int kBandPixels = 64 * 1024;  // 256 KiB: what a core's own cache holds

/// Where a band from the rest's top ends: below a row of cells where it can.
int bandEnd(const DirtyRectangle& rest, int tile) {
  const int end = rest.top + std::max(kBandPixels / (rest.right - rest.left), 1);
  if (end >= rest.bottom) return rest.bottom;
  const int cells = tile > 0 ? end - end % tile : end;
  return cells > rest.top ? cells : end;
}

}  // namespace

Composition::Composition() {
  pctBackground_.resize(kBackgroundSize, kBackgroundSize);
  background(QImage());
}

void Composition::background(const QImage& picture) {
  backgroundPicture_ = picture;
  if (picture.isNull())
    pctBackground_.clear(kPlainBackground);
  else
    pctBackground_.load(picture);
}

void Composition::draw(const Scene& scene, const DirtyRectangle& area, Surface& onto) {
  // What lies beyond the surface would be clipped by the transfer anyway.
  DirtyRectangle rest = area.within(onto.width(), onto.height());
  while (!rest.empty()) {
    DirtyRectangle band = rest;
    band.bottom = rest.top = bandEnd(rest, scene.atlas->tileWidth());
    drawBand(scene, band, onto);
  }
}

void Composition::drawBand(const Scene& scene, const DirtyRectangle& band, Surface& onto) {
  pctBack_.resize(band.right - band.left, band.bottom - band.top);
  collectSpots(scene, band);
  const bool hides = scene.floating && scene.atlas->holdsWhole(scene.floating->PentoType());
  const FloatingCover cover(hides ? scene.floating : nullptr, scene.atlas->tileWidth(), band);
  PaintBackground(scene, band, cover);
  PaintCells(scene, cover);
  PaintBorders(scene);
  PaintFloatingPento(scene, band);
  BitBlt(onto, band.left, band.top, pctBack_.width(), pctBack_.height(), pctBack_, 0, 0);
}

/// The texture of a cell. Neighbours that belong to the same piece share one question.
int Composition::textureAt(const Scene& scene, int column, int row, std::int32_t id) const {
  if (id == PENTOGRID::kEmpty) return AtlasLayout::kEmptyCell;
  if (id < 0) return kNoTexture;
  if (!spots_.empty() && spots_.back().id == id) return spots_.back().texture;
  const int type = scene.grid->PentoAt(column, row)->PentoType();
  return TextureAtlas::contains(type) ? type : kNoTexture;
}

/// The cells of the grid that the area touches, row by row.
void Composition::collectSpots(const Scene& scene, const DirtyRectangle& area) {
  spots_.clear();
  const int s = scene.atlas->tileWidth();
  if (!scene.grid || s <= 0) return;
  const int lastColumn = std::min((area.right - 1) / s, scene.grid->Width() - 1);
  const int lastRow = std::min((area.bottom - 1) / s, scene.grid->Height() - 1);
  for (int row = area.top / s; row <= lastRow; ++row) {
    for (int column = area.left / s; column <= lastColumn; ++column) {
      const std::int32_t id = scene.grid->PentoID(column, row);
      spots_.push_back({column * s - area.left, row * s - area.top, column, row, id,
                        textureAt(scene, column, row, id)});
    }
  }
}

void Composition::PaintBackground(const Scene& scene, const DirtyRectangle& area,
                                  const FloatingCover& cover) {
  const int width = pctBack_.width(), height = pctBack_.height();
  if (spots_.empty()) {
    fillWithBackground(area, 0, 0, width, height);
    return;
  }
  for (const Spot& spot : spots_) {
    if (spot.texture != kNoTexture && scene.atlas->holdsWhole(spot.texture)) continue;
    cover.aroundCell(spot.x, spot.y, [&](int x, int y, int partWidth, int partHeight) {
      fillWithBackground(area, x, y, partWidth, partHeight);
    });
  }
  const int s = scene.atlas->tileWidth();
  const int right = spots_.back().x + s, bottom = spots_.back().y + s;  // the grid ends here
  fillWithBackground(area, right, 0, width - right, height);
  fillWithBackground(area, 0, bottom, right, height - bottom);
}

/// Fills a rectangle of the buffer with the background picture, which is tiled from the drawing
/// surface's corner.
void Composition::fillWithBackground(const DirtyRectangle& area, int x, int y, int width,
                                     int height) {
  const int left = std::max(x, 0), top = std::max(y, 0);
  const int right = std::min(x + width, pctBack_.width());
  const int bottom = std::min(y + height, pctBack_.height());
  const int tileX = pctBackground_.width(), tileY = pctBackground_.height();
  if (left >= right || tileX == 0 || tileY == 0) return;
  for (int line = top; line < bottom; ++line) {
    const Surface::Pixel* source = pctBackground_.row((line + area.top) % tileY);
    Surface::Pixel* target = pctBack_.row(line);
    for (int at = left; at < right;) {
      const int from = (at + area.left) % tileX;
      const int run = std::min(tileX - from, right - at);
      std::copy_n(source + from, run, target + at);
      at += run;
    }
  }
}

void Composition::PaintCells(const Scene& scene, const FloatingCover& cover) {
  for (const Spot& spot : spots_) {
    if (spot.texture == kNoTexture) continue;
    cover.aroundCell(spot.x, spot.y, [&](int x, int y, int width, int height) {
      scene.atlas->copyPart(spot.texture, x - spot.x, y - spot.y, width, height, pctBack_, x, y);
    });
  }
}

/// A white line on each side whose neighbour inside the grid belongs to something else.
void Composition::PaintBorders(const Scene& scene) {
  if (spots_.empty()) return;
  const int s = scene.atlas->tileWidth();
  const PENTOGRID& grid = *scene.grid;
  for (const auto& [x, y, column, row, id, texture] : spots_) {
    if (id == PENTOGRID::kBackground) continue;
    if (row > 0 && grid.PentoID(column, row - 1) != id) drawRow(pctBack_, x, y, s, kOutline);
    if (column > 0 && grid.PentoID(column - 1, row) != id) drawColumn(pctBack_, x, y, s, kOutline);
    if (row < grid.Height() - 1 && grid.PentoID(column, row + 1) != id)
      drawRow(pctBack_, x, y + s - 1, s, kOutline);
    if (column < grid.Width() - 1 && grid.PentoID(column + 1, row) != id)
      drawColumn(pctBack_, x + s - 1, y, s, kOutline);
  }
}

void Composition::PaintFloatingPento(const Scene& scene, const DirtyRectangle& area) {
  if (!scene.floating) return;
  const PENTO& piece = *scene.floating;
  const int s = scene.atlas->tileWidth();
  for (int i = 0; i < PENTO::kCells; ++i)
    scene.atlas->copyTile(piece.PentoType(), pctBack_, piece.X() + s * piece.GridX(i) - area.left,
                          piece.Y() + s * piece.GridY(i) - area.top);
}
