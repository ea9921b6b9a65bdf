#pragma once

#include <QPainter>

#include "art/Outline.h"

namespace pictures {

/// How a piece is painted; lengths in the painter's units.
struct PieceLook {
  double cell = 16;        ///< edge of one cell
  double radius = 2;       ///< of the rounded corners
  double bevel = 1.5;      ///< width of the lit and the shaded edges
  double outline = 1;      ///< width of the white outline, 0 for none
  double shadow = 0;       ///< how far the soft shadow falls, 0 for none
  double grain = 1;        ///< cells that one square of the material covers
  double deviceScale = 1;  ///< device pixels per painter unit, for the material's sharpness
};

/// Paints a piece cut from its game texture, its cell (0, 0) at the painter's origin.
void paintPiece(QPainter& painter, const Piece& piece, const PieceLook& look);
/// The shadow alone, so that all of an arrangement's shadows can lie below all of its pieces.
void paintShadow(QPainter& painter, const QPainterPath& path, double length);
/// All of them, shadows first.
void paintPieces(QPainter& painter, const std::vector<Piece>& pieces, const PieceLook& look);

}  // namespace pictures
