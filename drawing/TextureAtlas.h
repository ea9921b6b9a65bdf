#pragma once

#include <QImage>
#include <filesystem>

#include "drawing/AtlasLayout.h"
#include "drawing/Surface.h"

/// The sixteen textures at the current tile size, laid out as in their picture.
///
/// Units:  device pixels; a tile's edge is tileWidth().
class TextureAtlas {
 public:
  /// A plain atlas of the given width and height; the tile is a quarter of the width, rounded.
  TextureAtlas(int width, int height);

  /// Reads a texture file and scales it, without blending, to tiles of `tile` pixels.
  /// Errors: std::runtime_error when the file cannot be read as a picture; by then the atlas shows
  ///         the textures read before, or plain colours, at the new tile size.
  void load(const std::filesystem::path& file, int tile);
  /// The same from a picture that is in memory; a null one leaves the textures as they were.
  void load(const QImage& picture, int tile);

  /// Shows a picture unscaled in an atlas that keeps its size; the tile becomes a quarter of its
  /// width. A null picture leaves it plain.
  void showUnscaled(const QImage& picture);

  int tileWidth() const { return tile_; }
  /// What the atlas shows: the picture that was given, or the textures that were read, scaled; null
  /// while it is plain.
  QImage picture() const { return loaded_ ? atlas_.view().copy() : given_; }
  /// Whether the atlas, which may be smaller than four by four tiles, holds all of a texture.
  bool holdsWhole(int texture) const;
  static bool contains(int texture) { return texture >= 0 && texture < AtlasLayout::kTextures; }

  /// Copies a texture to (x, y), clipped to the target. A number that is no texture copies nothing.
  void copyTile(int texture, Surface& to, int x, int y) const {
    copyPart(texture, 0, 0, tile_, tile_, to, x, y);
  }
  /// Copies a part of a texture that starts at (fromX, fromY) inside it.
  void copyPart(int texture, int fromX, int fromY, int width, int height, Surface& to, int x,
                int y) const;

 private:
  Surface atlas_;
  Surface textures_;  ///< what was read last, unscaled
  int tile_ = 0;
  QImage given_;         ///< to be shown unscaled
  bool loaded_ = false;  ///< the textures were read from a file
};
