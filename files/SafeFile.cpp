#include "files/SafeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace SafeFile {

DiskCalls disk;

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10;
constexpr int kMostLinks = 40;
constexpr int kMostNames = 100;
constexpr mode_t kNewFile = 0666;  // less what the user's mask takes away
constexpr mode_t kPermissions = 07777;

/// The folder does not allow what a safe write needs; writing in place may still work.
class NotBeside : public std::system_error {
  using std::system_error::system_error;
};

[[noreturn]] void fail() {
  throw std::system_error(errno, std::generic_category());
}

[[noreturn]] void refuseSpecial() {
  throw std::runtime_error("This is not an ordinary file.");
}

/// Passes a call's result on unless it tells of a failure.
template <typename Result>
Result checked(Result result) {
  if (result < 0) fail();
  return result;
}

bool isMissing(int error) {
  return error == ENOENT || error == ENOTDIR;
}

/// A descriptor that is closed on every way out.
class OpenFile {
 public:
  OpenFile(const fs::path& file, int flags, mode_t mode = 0)
      : descriptor_(disk.open(file.c_str(), flags | O_CLOEXEC, mode)) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (isOpen()) disk.close(descriptor_);
  }
  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  void close() {
    if (isOpen()) checked(disk.close(std::exchange(descriptor_, -1)));
  }

 private:
  int descriptor_;
};

OpenFile opened(const fs::path& file, int flags) {
  OpenFile result(file, flags);
  if (!result.isOpen()) fail();
  return result;
}

void refuseUnlessOrdinary(const OpenFile& file) {
  struct stat status {};
  checked(disk.statusOfOpen(file.descriptor(), &status));
  if (!S_ISREG(status.st_mode)) refuseSpecial();
}

/// The name behind a chain of symbolic links; it need not exist.
fs::path realTarget(fs::path file) {
  for (int links = 0; links < kMostLinks; ++links) {
    struct stat status {};
    if (disk.statusOfLink(file.c_str(), &status) < 0) {
      if (isMissing(errno)) return file;
      fail();
    }
    if (!S_ISLNK(status.st_mode)) return file;
    std::array<char, PATH_MAX> text;
    const auto length = checked(disk.readLink(file.c_str(), text.data(), text.size()));
    file = file.parent_path() / std::string(text.data(), static_cast<std::size_t>(length));
  }
  errno = ELOOP;
  fail();
}

/// What is known of the file that is written over; nothing where there is none yet.
std::optional<struct stat> statusOf(const fs::path& target) {
  struct stat status {};
  if (disk.statusOfLink(target.c_str(), &status) == 0) return status;
  if (!isMissing(errno)) fail();
  return std::nullopt;
}

/// A file without any write permission is meant to stay, even for a user to whom all is allowed.
void refuseUnlessWritable(const fs::path& target, const struct stat& status) {
  if (!S_ISREG(status.st_mode)) refuseSpecial();
  const bool anyoneMayWrite = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
  if (anyoneMayWrite && disk.mayAccess(target.c_str(), W_OK) == 0) return;
  if (anyoneMayWrite && errno != EACCES) fail();
  throw std::runtime_error("The file is read-only.");
}

void writeAll(const OpenFile& file, const std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t size = disk.write(file.descriptor(), bytes.data() + done, bytes.size() - done,
                                    static_cast<off_t>(done));
    if (size < 0 && errno == EINTR) continue;
    if (size == 0) errno = EIO;
    if (size <= 0) fail();
    done += static_cast<std::size_t>(size);
  }
}

/// Gives the new file what the old one had. A user may be unable to give a file away; it is then
/// the user's own. The mode comes last, since a change of owner can take bits away, and only where
/// it differs, since some file systems know no modes and refuse to set one.
void keepPermissions(const OpenFile& file, const struct stat& old) {
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  constexpr auto kSameGroup = static_cast<gid_t>(-1);
  struct stat now {};
  checked(disk.statusOfOpen(file.descriptor(), &now));
  if (now.st_gid != old.st_gid) disk.setOwner(file.descriptor(), kSameOwner, old.st_gid);
  if (now.st_uid != old.st_uid) disk.setOwner(file.descriptor(), old.st_uid, kSameGroup);
  checked(disk.statusOfOpen(file.descriptor(), &now));
  const mode_t wanted = old.st_mode & kPermissions;
  if ((now.st_mode & kPermissions) != wanted) checked(disk.setMode(file.descriptor(), wanted));
}

/// The new file beside the target: removed on every way out on which it did not take the name.
class FileBeside {
 public:
  explicit FileBeside(const fs::path& folder, mode_t mode) : file_(create(folder, mode)) {}
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside() {
    if (!renamed_) disk.remove(name_.c_str());
  }
  OpenFile& file() { return file_; }

  void takeNameOf(const fs::path& target) {
    if (disk.rename(name_.c_str(), target.c_str()) == 0) {
      renamed_ = true;
      return;
    }
    // The folder keeps others' files (EACCES, EPERM) or the target is mounted (EBUSY, EXDEV).
    if (errno == EACCES || errno == EPERM || errno == EBUSY || errno == EXDEV)
      throw NotBeside(errno, std::generic_category());
    fail();
  }

 private:
  /// The name is short whatever the target's: a long one could not be made longer.
  OpenFile create(const fs::path& folder, mode_t mode) {
    static std::atomic<unsigned> counter{0};
    for (int tries = 0; tries < kMostNames; ++tries) {
      name_ = folder / (".quinzolith-" + std::to_string(::getpid()) + "-" +
                        std::to_string(counter++) + ".tmp");
      OpenFile result(name_, O_WRONLY | O_CREAT | O_EXCL, mode);
      if (result.isOpen()) return result;
      if (errno == EACCES || errno == EPERM || errno == EROFS)
        throw NotBeside(errno, std::generic_category());
      if (errno != EEXIST) break;
    }
    fail();
  }

  fs::path name_;
  bool renamed_ = false;
  OpenFile file_;  // after name_: making it sets the name
};

/// The folder, opened before anything is written. One that may be written but not listed cannot be
/// opened, and so cannot be made to reach the disk; a save into it is still a save.
OpenFile openedFolder(const fs::path& folder) {
  OpenFile result(folder, O_RDONLY | O_DIRECTORY);
  if (!result.isOpen() && errno != EACCES) fail();
  return result;
}

/// Some file systems know no such request for a folder and say EINVAL.
void syncFolder(const OpenFile& folder) {
  if (folder.isOpen() && disk.sync(folder.descriptor()) < 0 && errno != EINVAL) fail();
}

void writeBeside(const fs::path& target, const std::string& bytes,
                 const std::optional<struct stat>& old) {
  FileBeside beside(target.parent_path(), old ? old->st_mode & S_IRWXU : kNewFile);
  writeAll(beside.file(), bytes);
  if (old) keepPermissions(beside.file(), *old);
  checked(disk.sync(beside.file().descriptor()));
  beside.file().close();
  beside.takeNameOf(target);
}

void overwrite(OpenFile file, const std::string& bytes) {
  writeAll(file, bytes);
  checked(disk.truncate(file.descriptor(), static_cast<off_t>(bytes.size())));
  checked(disk.sync(file.descriptor()));
  file.close();
}

void writeInPlace(const fs::path& target, const std::string& bytes, const struct stat& status) {
  const std::string old = read(target, static_cast<std::size_t>(status.st_size));
  OpenFile file = opened(target, O_WRONLY);
  try {
    overwrite(std::move(file), bytes);
  } catch (const std::system_error& reason) {
    try {
      overwrite(opened(target, O_WRONLY), old);
    } catch (const std::system_error&) {
      throw std::runtime_error(reason.code().message() +
                               ". The file is damaged: its old content could not be put back.");
    }
    throw;
  }
}

}  // namespace

bool exists(const fs::path& file) {
  const std::string name = file.filename().string();
  if (name.empty() || name.front() == '.') return false;
  struct stat status {};
  if (disk.status(file.c_str(), &status) == 0) return S_ISREG(status.st_mode);
  if (!isMissing(errno)) fail();
  return false;
}

std::string read(const fs::path& file, std::size_t ceiling) {
  // Opening a pipe would wait for its other end.
  OpenFile source = opened(file, O_RDONLY | O_NONBLOCK);
  refuseUnlessOrdinary(source);
  std::string bytes;
  std::size_t done = 0;
  while (done < ceiling) {
    bytes.resize(done + std::min(kBlock, ceiling - done));
    const ssize_t size = disk.read(source.descriptor(), bytes.data() + done, bytes.size() - done);
    if (size < 0 && errno == EINTR) continue;
    if (checked(size) == 0) break;
    done += static_cast<std::size_t>(size);
  }
  source.close();
  bytes.resize(done);
  return bytes;
}

void write(const fs::path& file, const std::string& bytes) {
  const fs::path target = realTarget(file);
  const std::optional<struct stat> old = statusOf(target);
  if (old) refuseUnlessWritable(target, *old);
  OpenFile folder = openedFolder(target.has_parent_path() ? target.parent_path() : fs::path("."));
  try {
    writeBeside(target, bytes, old);
    syncFolder(folder);
  } catch (const NotBeside&) {
    if (!old) throw;
    folder.close();  // first, so that after the writing nothing is left that could fail
    writeInPlace(target, bytes, *old);
  }
  folder.close();
}

}  // namespace SafeFile
