#pragma once

#include <X11/keysym.h>

#include <chrono>
#include <thread>

#include "bench/Server.h"

using Seconds = std::chrono::duration<double>;

inline constexpr Seconds kFocus{1};    ///< in which the window manager hands the keys over
inline constexpr Seconds kSettled{2};  ///< after which nothing goes on any more
inline constexpr const char* kChooser = "Select Quinzolith Puzzle";

/// From the splash window through the chooser to the play window with the Rocket puzzle.
inline void openPlayWindow(Server& server) {
  waitFor(server, "Quinzolith");
  std::this_thread::sleep_for(kFocus);
  server.keys({XK_Return});
  waitFor(server, kChooser);
  std::this_thread::sleep_for(kFocus);
  server.keys({XK_Escape});
  waitFor(server, kChooser, false);
  server.move(server.width() / 2, server.height() / 2);
  std::this_thread::sleep_for(kSettled);
}
