#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <functional>

/// The system calls through which puzzle files reach the disk, one replaceable function each, so
/// that a test can make any of them fail. A new table holds the system's own (POSIX).
///
/// Errors: as the system's own: -1, with the reason in errno.
struct DiskCalls {
  DiskCalls();

  std::function<int(const char* file, int flags, mode_t mode)> open;
  std::function<int(int descriptor)> close;
  std::function<ssize_t(int descriptor, void* bytes, std::size_t size)> read;
  std::function<ssize_t(int descriptor, const void* bytes, std::size_t size, off_t offset)> write;
  std::function<int(int descriptor)> sync;
  std::function<int(int descriptor, off_t size)> truncate;
  std::function<int(int descriptor, mode_t mode)> setMode;
  std::function<int(int descriptor, uid_t owner, gid_t group)> setOwner;
  std::function<int(int descriptor, struct stat*)> statusOfOpen;
  std::function<int(const char* file, struct stat*)> status;        ///< follows links
  std::function<int(const char* file, struct stat*)> statusOfLink;  ///< does not follow links
  std::function<ssize_t(const char* link, char* text, std::size_t size)> readLink;
  std::function<int(const char* file, int wanted)> mayAccess;
  std::function<int(const char* from, const char* to)> rename;
  std::function<int(const char* file)> remove;
};
