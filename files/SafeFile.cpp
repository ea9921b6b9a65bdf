#include "files/SafeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <stdexcept>
#include <utility>

#include "files/FileBeside.h"
#include "files/HeldSignals.h"
#include "files/OpenFile.h"
#include "files/Place.h"

namespace fs = std::filesystem;

namespace SafeFile {

Seam<DiskCalls> disk{DiskCalls{}};

namespace {

constexpr mode_t kNewFile = 0666;
constexpr mode_t kPermissions = 07777;
constexpr off_t kLargestInPlace = off_t{65} << 20;

/// The file that is written over.
struct Old {
  OpenFile file;
  bool readable;
  struct stat status;

  std::size_t size() const { return static_cast<std::size_t>(status.st_size); }
  std::string from(std::size_t start) const {
    if (!readable) errno = EACCES;
    if (!readable) failCall();
    return file.read(start, size());
  }
};

bool isMissing(int error) {
  return error == ENOENT || error == ENOTDIR;
}

void refuseUnlessOrdinary(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) throw std::runtime_error("This is not an ordinary file.");
}

[[noreturn]] void refuseReadOnly() {
  throw std::runtime_error("The file is read-only.");
}

/// One that may be written but not read serves as long as nothing is wanted of what it holds.
Old openedForWriting(const Place& place) {
  for (const int access : {O_RDWR, O_WRONLY}) {
    OpenFile file(place.folder.descriptor(), place.name, access | O_NOFOLLOW | O_NONBLOCK);
    if (!file.isOpen() && errno == EACCES) continue;
    if (!file.isOpen()) failCall();
    const struct stat status = file.status();
    return Old{std::move(file), access == O_RDWR, status};
  }
  refuseReadOnly();
}

/// A file without any write permission is meant to stay, even for a user to whom all is allowed.
std::optional<Old> oldFileAt(const Place& place) {
  if (!place.status) return std::nullopt;
  const struct stat& seen = *place.status;
  refuseUnlessOrdinary(seen);
  if ((seen.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) refuseReadOnly();
  Old old = openedForWriting(place);
  const struct stat& status = old.status;
  if (status.st_dev != seen.st_dev || status.st_ino != seen.st_ino ||
      status.st_uid != seen.st_uid || !S_ISREG(status.st_mode))
    throw std::runtime_error("Another file took the place of this one while it was being saved.");
  return old;
}

/// Gives the new file what the old one had. A user may be unable to give a file away; it is then
/// the user's own. The mode comes last, since a change of owner can take bits away, and only where
/// it differs, since some file systems know no modes and refuse to set one.
void keepPermissions(const OpenFile& file, const struct stat& old) {
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  constexpr auto kSameGroup = static_cast<gid_t>(-1);
  const struct stat fresh = file.status();
  if (fresh.st_gid != old.st_gid) disk->setOwner(file.descriptor(), kSameOwner, old.st_gid);
  if (fresh.st_uid != old.st_uid) disk->setOwner(file.descriptor(), old.st_uid, kSameGroup);
  const mode_t wanted = old.st_mode & kPermissions;
  if ((file.status().st_mode & kPermissions) != wanted)
    checkedCall(disk->setMode(file.descriptor(), wanted));
}

/// The folder, opened before anything is written. One that may be written but not listed cannot be
/// opened so, and cannot be made to reach the disk; a save into it is still a save.
OpenFile folderToSync(const Place& place) {
  OpenFile result(place.folder.descriptor(), ".", O_RDONLY | O_DIRECTORY);
  if (!result.isOpen() && errno != EACCES) failCall();
  return result;
}

/// Some file systems know no such request for a folder and say EINVAL.
void syncFolder(const OpenFile& folder) {
  if (folder.isOpen() && disk->sync(folder.descriptor()) < 0 && errno != EINVAL) failCall();
}

void writeBeside(const Place& place, const std::string& bytes, const std::optional<Old>& old,
                 mode_t mode) {
  FileBeside beside(place, old ? old->status.st_mode & S_IRWXU : mode);
  beside.file().write(bytes);
  if (old) keepPermissions(beside.file(), old->status);
  beside.file().sync();
  beside.file().close();
  beside.takeName();
}

/// Another user may have given a file of ours a second name in a folder of theirs.
void refuseBorrowedName(const Place& place, const struct stat& status) {
  if (status.st_nlink > 1 && status.st_uid == ::geteuid() &&
      !isTrusted(place.folder.status().st_uid))
    throw std::runtime_error("This is another user's name for a file of yours.");
}

void writeInPlace(const Place& place, const std::string& bytes, const Old& old) {
  refuseBorrowedName(place, old.status);
  if (old.status.st_size > kLargestInPlace)
    throw std::length_error("The file is too large to be written in place.");
  const std::string before = old.from(0);
  try {
    old.file.overwrite(bytes);
  } catch (const std::system_error& reason) {
    try {
      old.file.overwrite(before);
    } catch (const std::system_error&) {
      throw std::runtime_error(reason.code().message() +
                               ". The file is damaged: its old content could not be put back.");
    }
    throw;
  }
}

std::string tailOf(const std::optional<Old>& old, std::size_t start, std::size_t longest) {
  if (!old || old->size() <= start) return {};
  if (old->size() - start > longest)
    throw std::length_error("The file that would be written over is too large.");
  return old->from(start);
}

void writeTo(const Place& place, const std::string& bytes, const std::optional<Old>& old,
             mode_t mode) {
  OpenFile folder = folderToSync(place);
  try {
    writeBeside(place, bytes, old, mode);
    syncFolder(folder);
  } catch (const NotBeside&) {
    if (!old) throw;
    writeInPlace(place, bytes, *old);
  }
}

}  // namespace

bool exists(const fs::path& file) {
  const std::string name = file.filename().string();
  if (name.empty() || name.front() == '.') return false;
  struct stat status {};
  if (disk->status(file.c_str(), &status) == 0) return S_ISREG(status.st_mode);
  if (!isMissing(errno)) failCall();
  return false;
}

std::string read(const fs::path& file, std::size_t ceiling) {
  struct stat status {};
  checkedCall(disk->status(file.c_str(), &status));
  refuseUnlessOrdinary(status);  // before it is opened: to open a device can be to use it
  // Opening a pipe, should it be one by now, would wait for its other end.
  OpenFile source = opened(AT_FDCWD, file.string(), O_RDONLY | O_NONBLOCK);
  refuseUnlessOrdinary(source.status());
  return source.read(0, ceiling);
}

void write(const fs::path& file, const std::string& bytes, mode_t mode) {
  const HeldSignals held;
  const Place place = placeOf(file);
  writeTo(place, bytes, oldFileAt(place), mode);
  removeLeftovers(place.folder);
}

void writeOver(const fs::path& file, const std::string& bytes, std::size_t longestTail) {
  const HeldSignals held;
  const Place place = placeOf(file);
  const std::optional<Old> old = oldFileAt(place);
  writeTo(place, bytes + tailOf(old, bytes.size(), longestTail), old, kNewFile);
  removeLeftovers(place.folder);
}

}  // namespace SafeFile
