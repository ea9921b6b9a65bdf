#include "files/Device.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

#include "files/OpenFile.h"
#include "files/Place.h"
#include "files/SafeFile.h"

namespace SafeFile {

namespace {

bool isDevice(const struct stat& status) {
  return !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode) && !S_ISSOCK(status.st_mode) &&
         isTrusted(status.st_uid);
}

/// The system's names (/dev/stdout) are links that only it can follow.
bool namesDevice(const std::filesystem::path& file) {
  struct stat status {};
  const bool isThere = disk->statusOfLink(AT_FDCWD, file.c_str(), &status) == 0;
  if (!isThere || !isTrusted(status.st_uid)) return false;
  return disk->status(file.c_str(), &status) == 0 && isDevice(status);
}

}  // namespace

bool send(const std::filesystem::path& file, const std::string& bytes) {
  if (!namesDevice(file)) return false;
  const OpenFile device = opened(AT_FDCWD, file.string(), O_WRONLY);
  if (!isDevice(device.status())) throw std::runtime_error("Something else took its place.");
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t size = ::write(device.descriptor(), bytes.data() + done, bytes.size() - done);
    if (size < 0 && errno == EINTR) continue;
    done += static_cast<std::size_t>(checkedCall(size));
  }
  return true;
}

}  // namespace SafeFile
