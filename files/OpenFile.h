#pragma once

#include <cstddef>
#include <string>

#include "files/DiskCalls.h"

/// A file or folder of the disk while it is open. All its calls are SafeFile::disk's.
///
/// Errors: std::system_error.
class OpenFile {
 public:
  /// Opens a name in a folder (AT_FDCWD: the working folder). Whether it did: isOpen(), else errno.
  OpenFile(int folder, const std::string& name, int flags, mode_t mode = 0);
  OpenFile(OpenFile&& other) noexcept;
  OpenFile& operator=(OpenFile&& other) noexcept;
  ~OpenFile();  ///< closes; what that has to tell concerns nobody any more

  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  struct stat status() const;
  /// What stands from `from` up to `to`, in bytes; less where the file ends earlier.
  std::string read(std::size_t from, std::size_t to) const;
  /// Makes `bytes` the file's first ones.
  void write(const std::string& bytes) const;
  /// Makes them all, on the disk.
  void overwrite(const std::string& bytes) const;
  void sync() const;
  void close();

 private:
  int descriptor_;
};

/// Throws the reason of the call that failed last (errno).
[[noreturn]] void failCall();

/// Passes a call's result on unless it tells of a failure.
template <typename Result>
Result checkedCall(Result result) {
  if (result < 0) failCall();
  return result;
}

/// As OpenFile's constructor. Errors: it cannot be opened.
OpenFile opened(int folder, const std::string& name, int flags);
