#pragma once

#include <QRect>
#include <QRegion>

/// Where a dialog of that size (with its frame) hides as little as possible of a shape on the
/// screen: to its right, left, below or above, where there is room, else there or in the corner of
/// the screen that leaves most of the shape's cells to be seen, and never off the screen.
/// All in the same units; the corner is that of the frame.
QPoint besideShape(const QSize& dialog, const QRegion& shape, const QRect& screen);
