#include "files/OpenFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "files/SafeFile.h"

using SafeFile::disk;

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10;

}  // namespace

void failCall() {
  throw std::system_error(errno, std::generic_category());
}

OpenFile::OpenFile(int folder, const std::string& name, int flags, mode_t mode)
    : descriptor_(disk->open(folder, name.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode)) {}

OpenFile::OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

OpenFile::~OpenFile() {
  if (isOpen()) ::close(descriptor_);
}

struct stat OpenFile::status() const {
  struct stat result {};
  checkedCall(disk->statusOfOpen(descriptor_, &result));
  return result;
}

std::string OpenFile::read(std::size_t from, std::size_t to) const {
  std::string bytes;
  std::size_t done = from;
  while (done < to) {
    bytes.resize(done - from + std::min(kBlock, to - done));
    const ssize_t size = disk->read(descriptor_, bytes.data() + (done - from),
                                    bytes.size() - (done - from), static_cast<off_t>(done));
    if (size < 0 && errno == EINTR) continue;
    if (checkedCall(size) == 0) break;
    done += static_cast<std::size_t>(size);
  }
  bytes.resize(done - from);
  return bytes;
}

void OpenFile::write(const std::string& bytes) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t size = disk->write(descriptor_, bytes.data() + done, bytes.size() - done,
                                     static_cast<off_t>(done));
    if (size < 0 && errno == EINTR) continue;
    if (size == 0) errno = EIO;
    if (size <= 0) failCall();
    done += static_cast<std::size_t>(size);
  }
}

void OpenFile::overwrite(const std::string& bytes) const {
  write(bytes);
  checkedCall(disk->truncate(descriptor_, static_cast<off_t>(bytes.size())));
  sync();
}

void OpenFile::sync() const {
  checkedCall(disk->sync(descriptor_));
}

void OpenFile::close() {
  if (isOpen()) checkedCall(disk->close(std::exchange(descriptor_, -1)));
}

OpenFile opened(int folder, const std::string& name, int flags) {
  OpenFile result(folder, name, flags);
  if (!result.isOpen()) failCall();
  return result;
}
