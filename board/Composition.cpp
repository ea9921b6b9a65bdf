#include "board/Composition.h"

#include <algorithm>

namespace {

constexpr int kBackgroundSize = 128;
constexpr Surface::Pixel kPlainBackground = Surface::rgb(160, 160, 208);
constexpr Surface::Pixel kOutline = Surface::rgb(255, 255, 255);

}  // namespace

void DirtyRectangle::include(const DirtyRectangle& other) {
  left = std::min(left, other.left);
  top = std::min(top, other.top);
  right = std::max(right, other.right);
  bottom = std::max(bottom, other.bottom);
}

DirtyRectangle DirtyRectangle::within(int width, int height) const {
  return {std::max(left, 0), std::max(top, 0), std::min(right, width), std::min(bottom, height)};
}

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
  const DirtyRectangle seen = area.within(onto.width(), onto.height());
  if (seen.empty()) return;
  pctBack_.resize(seen.right - seen.left, seen.bottom - seen.top);
  collectSpots(scene, seen);
  PaintBackground(scene, seen);
  PaintCells(scene);
  PaintBorders(scene);
  PaintFloatingPento(scene, seen);
  BitBlt(onto, seen.left, seen.top, pctBack_.width(), pctBack_.height(), pctBack_, 0, 0);
}

Composition::Spot Composition::spotAt(const Scene& scene, int column, int row) const {
  Spot spot{0, 0, column, row, scene.grid->PentoID(column, row), kNoTexture};
  if (spot.id == PENTOGRID::kEmpty) {
    spot.texture = TextureAtlas::kEmptyCell;
  } else if (spot.id > 0) {
    const bool again = !spots_.empty() && spots_.back().id == spot.id;
    const int type = again ? spots_.back().texture : scene.grid->PentoAt(column, row)->PentoType();
    spot.texture = TextureAtlas::contains(type) ? type : kNoTexture;
  }
  return spot;
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
      Spot spot = spotAt(scene, column, row);
      spot.x = column * s - area.left;
      spot.y = row * s - area.top;
      spots_.push_back(spot);
    }
  }
}

void Composition::PaintBackground(const Scene& scene, const DirtyRectangle& area) {
  const int width = pctBack_.width(), height = pctBack_.height();
  if (spots_.empty()) {
    fillWithBackground(area, 0, 0, width, height);
    return;
  }
  const int s = scene.atlas->tileWidth();
  for (const Spot& spot : spots_)
    if (spot.texture == kNoTexture) fillWithBackground(area, spot.x, spot.y, s, s);
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

void Composition::PaintCells(const Scene& scene) {
  for (const Spot& spot : spots_)
    if (spot.texture != kNoTexture) scene.atlas->copyTile(spot.texture, pctBack_, spot.x, spot.y);
}

/// A white line on each side whose neighbour inside the grid belongs to something else.
void Composition::PaintBorders(const Scene& scene) {
  const int s = scene.atlas->tileWidth();
  for (const Spot& spot : spots_) {
    if (spot.id == PENTOGRID::kBackground) continue;
    const auto differs = [&](int column, int row) {
      return column >= 0 && row >= 0 && column < scene.grid->Width() &&
             row < scene.grid->Height() && scene.grid->PentoID(column, row) != spot.id;
    };
    const auto [x, y, column, row, id, texture] = spot;
    if (differs(column, row - 1)) fillRect(pctBack_, x, y, s, 1, kOutline);
    if (differs(column - 1, row)) fillRect(pctBack_, x, y, 1, s, kOutline);
    if (differs(column, row + 1)) fillRect(pctBack_, x, y + s - 1, s, 1, kOutline);
    if (differs(column + 1, row)) fillRect(pctBack_, x + s - 1, y, 1, s, kOutline);
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
