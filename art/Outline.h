#pragma once

#include <QPainterPath>
#include <QPoint>
#include <QPolygonF>
#include <string>
#include <string_view>
#include <vector>

namespace pictures {

/// A set of cells; x to the right, y downward.
using Cells = std::vector<QPoint>;

/// The cells of a drawing that hold `mark`, in which a character stands for each cell.
Cells cellsOf(const std::vector<std::string>& rows, char mark);

/// One piece of an arrangement.
struct Piece {
  int type = 0;  ///< 0 to 11
  Cells cells;
};
/// The pieces of a drawing in which each is written with its own letter ("YILWZPVFXNUT").
std::vector<Piece> piecesOf(const std::vector<std::string>& rows);
/// A piece in its base orientation.
Piece basePiece(int type);

/// The outlines of the cells' union as closed polygons in cell units, holes included, clockwise
/// with the inside on the right. Cells that touch at a corner only stay apart.
std::vector<QPolygonF> outlines(const Cells& cells);
/// The same as a path in which a cell is `cell` wide and all corners are rounded.
QPainterPath roundedPath(const Cells& cells, double cell, double radius);

/// Where the cells lie.
QRect bounds(const Cells& cells);

}  // namespace pictures
