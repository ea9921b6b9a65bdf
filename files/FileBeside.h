#pragma once

#include <string>
#include <system_error>

#include "files/Place.h"

/// The folder does not allow what a safe write needs; writing in place may still work.
class NotBeside : public std::system_error {
  using std::system_error::system_error;
};

/// A new file beside a target, which takes the target's name when it is whole. It is removed on
/// every way out on which it did not. Its own name begins with a dot, is short whatever the
/// target's, and cannot be guessed, so that nobody can have taken it before.
class FileBeside {
 public:
  /// Errors: NotBeside where the folder takes no new file; std::system_error.
  FileBeside(const Place& target, mode_t mode);
  FileBeside(FileBeside&&) = delete;
  ~FileBeside();

  OpenFile& file() { return file_; }
  /// Errors: NotBeside where the folder keeps the old file, or the target is mounted.
  void takeName();

 private:
  OpenFile create(mode_t mode);

  const Place& target_;
  std::string name_;
  bool renamed_ = false;
  OpenFile file_;  // after name_: making it sets the name
};

/// Removes what killed programs left in a folder: such files that are this user's own and older
/// than an hour. Whatever fails, fails without a word.
void removeLeftovers(const OpenFile& folder);
