#include "folders/FormerPuzzles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>

#include "files/OpenFile.h"
#include "folders/PuzzleName.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFile = 0644;

/// The bytes of this user's own ordinary file. Others could have planted links and pipes.
std::optional<std::string> ownBytes(const fs::path& file) {
  const OpenFile open(AT_FDCWD, file.string(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  if (!open.isOpen()) return std::nullopt;
  const struct stat status = open.status();
  const bool own = S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
  if (!own || status.st_size > static_cast<off_t>(kMostPuzzleBytes)) return std::nullopt;
  return open.read(0, kMostPuzzleBytes);
}

std::optional<std::string> readableBytes(const fs::path& file) {
  try {
    return ownBytes(file);
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

void copyInto(const OpenFile& folder, const fs::path& file) {
  const auto bytes = readableBytes(file);
  if (!bytes) return;
  const OpenFile copy(folder.descriptor(), file.filename().string(), O_WRONLY | O_CREAT | O_EXCL,
                      kNewFile);
  if (!copy.isOpen() && errno == EEXIST) return;
  if (!copy.isOpen()) failCall();
  copy.write(*bytes);
}

void copyAll(const fs::path& from, const OpenFile& to) {
  std::error_code none;
  for (fs::directory_iterator entry(from, none), end; !none && entry != end; entry.increment(none))
    if (isPuzzleName(entry->path())) copyInto(to, entry->path());
}

/// A new folder beside the one to be, with all copies in it.
void fill(const fs::path& folder, const std::vector<fs::path>& formerFolders) {
  const OpenFile open = opened(AT_FDCWD, folder.string(), O_RDONLY | O_DIRECTORY);
  for (const fs::path& former : formerFolders) copyAll(former, open);
  checkedCall(::syncfs(open.descriptor()));
}

}  // namespace

void makeWithFormerPuzzles(const fs::path& folder, const std::vector<fs::path>& formerFolders) {
  if (fs::exists(fs::symlink_status(folder))) return;
  std::string beside = (folder.parent_path() / ".new-XXXXXX").string();
  if (!::mkdtemp(beside.data())) return;
  std::error_code failed;
  try {
    fill(beside, formerFolders);
    fs::rename(beside, folder, failed);
  } catch (const std::system_error& error) {
    failed = error.code();
  }
  if (failed) fs::remove_all(beside, failed);
}
