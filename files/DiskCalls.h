#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// The system calls through which puzzle files reach the disk, one replaceable function each, so
/// that a test can make any of them fail. A new table holds the system's own (POSIX). `folder` is
/// the descriptor of an open folder, in which a name without a slash is looked up.
///
/// Errors: as the system's own: -1, with the reason in errno.
struct DiskCalls {
  DiskCalls();

  std::function<int(int folder, const char* name, int flags, mode_t mode)> open;
  std::function<int(int descriptor)> close;
  std::function<ssize_t(int descriptor, void* bytes, std::size_t size, off_t offset)> read;
  std::function<ssize_t(int descriptor, const void* bytes, std::size_t size, off_t offset)> write;
  std::function<int(int descriptor)> sync;
  std::function<int(int descriptor, off_t size)> truncate;
  std::function<int(int descriptor, mode_t mode)> setMode;
  std::function<int(int descriptor, uid_t owner, gid_t group)> setOwner;
  std::function<int(int descriptor, struct stat*)> statusOfOpen;
  std::function<int(const char* file, struct stat*)> status;  ///< follows links
  /// Does not follow links.
  std::function<int(int folder, const char* name, struct stat*)> statusOfLink;
  /// Of a link that is open itself (O_PATH | O_NOFOLLOW).
  std::function<ssize_t(int descriptor, char* text, std::size_t size)> readLink;
  std::function<int(int folder, const char* from, const char* to)> rename;
  std::function<int(int folder, const char* name)> remove;
  std::function<int(int folder, std::vector<std::string>& names)> list;  ///< also "." and ".."
};
