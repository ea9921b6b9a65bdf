#pragma once

#include <functional>

/// The program's start.
namespace basStartup {

/// The splash window has been left once; it is the About box from then on.
extern bool fSplashDone;

/// Prepares what all windows share, finds the folders (see Installation), lists the tunes and calls
/// `ShowSplash`. A step that fails is skipped.
void Main(const std::function<void()>& ShowSplash);

}  // namespace basStartup
