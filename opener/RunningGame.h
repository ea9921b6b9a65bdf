#pragma once

/// The game's windows on the display, if it runs there.
namespace RunningGame {

/// Asks the window manager to bring the game's topmost window to the front (X11, Extended Window
/// Manager Hints). False where the game has no window, or there is no X server to ask.
bool raise();

}  // namespace RunningGame
