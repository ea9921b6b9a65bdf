#pragma once

namespace puzzle {

/// While it lives, the first interrupt from the keyboard (Ctrl+C) asks long work to end with what
/// was found; the second one ends the program as usual.
class Interrupt {
 public:
  Interrupt();
  ~Interrupt();
  Interrupt(Interrupt&&) = delete;

  static bool asked();  ///< since the last one was made
};

}  // namespace puzzle
