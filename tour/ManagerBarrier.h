#pragma once

/// Tells a script that the window manager has handled every request that reached it so far: its
/// answer to a question of ours (_NET_REQUEST_FRAME_EXTENTS of the Extended Window Manager Hints)
/// comes after all of them.
class ManagerBarrier {
 public:
  /// `display` is an Xlib Display that outlives the object.
  explicit ManagerBarrier(void* display);
  ~ManagerBarrier();
  ManagerBarrier(ManagerBarrier&&) = delete;

  /// Asks and waits for the answer; returns at once where there is no window manager. Errors:
  /// Script::Error when no answer comes.
  void pass();

 private:
  bool answered() const;

  void* display_;
  unsigned long window_;  // never shown
};
