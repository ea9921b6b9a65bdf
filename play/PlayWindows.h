#pragma once

#include <functional>

class frmFinished;
class frmMain;
class frmOpen;
class frmSplash;

/// What the windows of the game may call of each other. Wiring makes the windows and fills
/// this in before the first one shows.
struct PlayWindows {
  frmSplash* Splash = nullptr;
  frmMain* Main = nullptr;
  frmOpen* Open = nullptr;
  frmFinished* Finished = nullptr;
  std::function<void()> ShowEditor;  ///< shows the editor, without waiting
};
