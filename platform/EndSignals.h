#pragma once

#include <QSocketNotifier>

/// As long as one lives, TERM, INT and HUP end the program in order: as if the outermost event loop
/// had been told to exit, from whatever dialog or handler, with the code of a program that the
/// signal ends (128 and its number). No question is asked, since nobody may be there to answer.
/// Make it after the application object.
///
/// Who lingers: 900 ms after the signal the process ends as it is, though never in the middle of a
///              save. A signal HUP that was ignored at the start (nohup) stays so.
/// Way:         the signals' handler writes into a pipe to itself, which the event loop reads.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(EndSignals&&) = delete;

 private:
  QSocketNotifier notifier_;
};
