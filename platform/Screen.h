#pragma once

#include <QWidget>
#include <functional>

#include "seams/Seam.h"

/// What the program asks of the screen that shows a window.
namespace Screen {

/// Bits per pixel.
extern Seam<std::function<int(const QWidget&)>> bitsPerPixel;

/// True when a window manager runs, or the display system needs none. A bare X server without one
/// never makes a window active.
bool hasWindowManager();

}  // namespace Screen
