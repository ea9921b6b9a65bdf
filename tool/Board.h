#pragma once

#include <QImage>
#include <filesystem>

#include "model/PENTOGRID.h"

namespace puzzle {

/// The grid as the game's board shows it: one texture a cell, white lines of one pixel between
/// pieces and along the edge of the shape, background transparent.
/// `tile` is the edge of a cell in pixels; `textures` is the 256 x 256 picture of 4 x 4 textures.
/// Errors: std::runtime_error when the picture cannot be read.
QImage renderBoard(const PENTOGRID& grid, int tile, const std::filesystem::path& textures);

}  // namespace puzzle
