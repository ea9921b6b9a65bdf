#pragma once

#include <csignal>

/// As long as one lives, the signals that ask a program to end (TERM, INT, HUP) wait: they are
/// delivered when it goes. So they end no program of ours between two steps of a save.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(HeldSignals&&) = delete;

  /// Whether one lives, in any thread. May be asked from a signal's handler.
  static bool any();

 private:
  sigset_t before_{};
};
