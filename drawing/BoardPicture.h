#pragma once

#include <QImage>

#include "drawing/TextureAtlas.h"
#include "model/PENTOGRID.h"

/// The picture of a whole grid as the board control shows it, outlines included; background cells
/// are transparent.
/// Shape: Width x Height cells of textures.tileWidth() device pixels, ARGB32_Premultiplied.
QImage boardPicture(const PENTOGRID& grid, const TextureAtlas& textures);
