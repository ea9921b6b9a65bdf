#pragma once

#include <QFrame>
#include <cstdint>

#include "board/PENTOWINDOW.h"

/// How a window sets up its boards.
namespace BoardLayout {

/// A board control as a window's design has it: with the program's background picture, and a name
/// for those who cannot see it.
PENTOWINDOW* newControl(QWidget* parent, const char* name, const QString& accessibleName);

/// A frame that can hide all of the content of a window.
QFrame* newCover(QWidget* client);

/// Lays the frame over the whole content of its window.
void cover(QFrame& frame);

/// Sizes the grid (cells) and empties it, with a ring of background one cell wide round its edge.
void ringGrid(PENTOGRID& grid, std::int16_t width, std::int16_t height);

/// Gives the control the largest tile with which these columns and rows fit into these twips,
/// and, when its screen has another density than before, the background picture for that.
/// Where the textures cannot be read the control shows what it has, and the layout goes on.
void fitTiles(PENTOWINDOW& control, double width, double height, int columns, int rows);

}  // namespace BoardLayout
