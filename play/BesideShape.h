#pragma once

#include <QRect>

/// Where a dialog of that size (with its frame) hides as little as possible of a shape on the
/// screen: to its right, left, below or above, where there is room, and never off the screen.
/// All in the same units; the corner is that of the frame.
QPoint besideShape(const QSize& dialog, const QRect& shape, const QRect& screen);
