#pragma once

#include <QImage>

/// The picture that is tiled behind the cells of a board, for a screen of that many device pixels
/// to a logical one.
QImage boardBackground(double devicePixelRatio);
