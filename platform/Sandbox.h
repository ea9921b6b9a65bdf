#pragma once

#include <functional>

#include "seams/Seam.h"

/// What a desktop's sandbox (Flatpak, Snap) asks of a program.
namespace Sandbox {

/// Whether there is one around the program: it then sees the player's files only through the
/// desktop's portal, which shows file dialogs of its own and grants what was chosen there. That
/// $SNAP is set does not suffice: programs that one in a snap starts inherit it.
extern Seam<std::function<bool()>> isAround;

/// Has the toolkit show the portal's file dialogs where there is a sandbox. Before the application
/// is made.
void usePortal();

}  // namespace Sandbox
