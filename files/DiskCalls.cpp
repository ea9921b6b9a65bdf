#include "files/DiskCalls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

DiskCalls::DiskCalls()
    : open([](const char* file, int flags, mode_t mode) { return ::open(file, flags, mode); }),
      close(::close),
      read(::read),
      write(::pwrite),
      sync(::fsync),
      truncate(::ftruncate),
      setMode(::fchmod),
      setOwner(::fchown),
      statusOfOpen(::fstat),
      status([](const char* file, struct stat* result) { return ::stat(file, result); }),
      statusOfLink(::lstat),
      readLink(::readlink),
      mayAccess(::access),
      rename(::rename),
      remove(::unlink) {}
