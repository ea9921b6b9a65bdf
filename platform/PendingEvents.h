#pragma once

#include <functional>

/// Loops inside loops: handlers that let other events run before they go on.

/// Lets waiting events run, all but the user's own input (a fast click must not slip in between a
/// step of a handler and the next).
void processPendingEvents();

/// Lives while a handler waits inside a loop of its own: a dialog, or processPendingEvents.
class NestedLoop {
 public:
  NestedLoop();
  ~NestedLoop();
  NestedLoop(NestedLoop&&) = delete;

  static int depth();  ///< how many are alive
};

/// Runs the work from the event loop's first level, when no handler is waiting any more. Work is
/// run in the order in which it was given.
void atFirstLevel(std::function<void()> work);

/// Runs what atFirstLevel still holds. For the end of the program, after its loop has ended.
void finishFirstLevelWork();
