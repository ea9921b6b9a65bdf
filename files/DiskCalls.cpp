#include "files/DiskCalls.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace {

int listFolder(int folder, std::vector<std::string>& names) {
  const int own = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  DIR* const entries = own < 0 ? nullptr : ::fdopendir(own);
  if (!entries) {
    if (own >= 0) ::close(own);
    return -1;
  }
  while (const dirent* entry = ::readdir(entries)) names.emplace_back(entry->d_name);
  return ::closedir(entries);
}

}  // namespace

DiskCalls::DiskCalls()
    : open([](int folder, const char* name, int flags, mode_t mode) {
        return ::openat(folder, name, flags, mode);
      }),
      close(::close),
      read(::pread),
      write(::pwrite),
      sync(::fsync),
      truncate(::ftruncate),
      setMode(::fchmod),
      setOwner(::fchown),
      statusOfOpen(::fstat),
      status([](const char* file, struct stat* result) { return ::stat(file, result); }),
      statusOfLink([](int folder, const char* name, struct stat* result) {
        return ::fstatat(folder, name, result, AT_SYMLINK_NOFOLLOW);
      }),
      readLink([](int descriptor, char* text, std::size_t size) {
        return ::readlinkat(descriptor, "", text, size);
      }),
      rename([](int folder, const char* from, const char* to) {
        return ::renameat(folder, from, folder, to);
      }),
      remove([](int folder, const char* name) { return ::unlinkat(folder, name, 0); }),
      list(listFolder) {}
