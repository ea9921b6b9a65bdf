#pragma once

/// As long as one lives, a toolkit that finds no display to show windows on ends the program with
/// one line on the standard error stream and exit code 1; left alone it would abort, with the
/// advice to install the program again. Make it before the application object, and let it go after
/// that.
class DisplayNeeded {
 public:
  /// The program's name, which begins the line.
  explicit DisplayNeeded(const char* program);
  ~DisplayNeeded();
  DisplayNeeded(DisplayNeeded&&) = delete;
};
