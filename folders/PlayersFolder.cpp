#include "folders/PlayersFolder.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "folders/FormerPuzzles.h"
#include "folders/Ownership.h"

namespace fs = std::filesystem;

namespace PlayersFolder {

namespace {

constexpr mode_t kOnlyOwner = 0700;

/// The absolute path that a variable holds, or nothing.
fs::path variable(const char* name) {
  const char* value = std::getenv(name);
  const fs::path path = value ? value : "";
  return path.is_absolute() ? path : fs::path();
}

fs::path home() {
  const fs::path named = variable("HOME");
  if (!named.empty()) return named;
  const passwd* user = ::getpwuid(::geteuid());
  return user && user->pw_dir ? user->pw_dir : "";
}

void makeWithParents(const fs::path& folder) {
  fs::path made;
  for (const fs::path& name : folder) ::mkdir((made /= name).c_str(), kOnlyOwner);
}

bool leadsTo(const fs::path& link, const fs::path& target) {
  std::error_code none;
  return fs::read_symlink(link, none) == target;
}

/// The link is the old one or the new one at any moment: another game of this user may run.
void replaceLink(const fs::path& link, const fs::path& target) {
  std::error_code failed;
  const fs::path beside = link.parent_path() / (".new-" + std::to_string(::getpid()));
  fs::create_symlink(target, beside, failed);
  if (!failed) fs::rename(beside, link, failed);
  if (failed) fs::remove(beside, failed);
}

void keepLink(const fs::path& link, const fs::path& target) {
  std::error_code none;
  const auto type = fs::symlink_status(link, none).type();
  const bool ours = type == fs::file_type::symlink || type == fs::file_type::not_found;
  if (ours && !leadsTo(link, target) && fs::exists(target, none)) replaceLink(link, target);
}

}  // namespace

fs::path path() {
  const fs::path named = variable("XDG_DATA_HOME");
  if (!named.empty()) return named / "quinzolith";
  const fs::path own = home();
  return own.empty() ? own : own / ".local" / "share" / "quinzolith";
}

bool prepare(const fs::path& folder, const fs::path& programFolder,
             const std::vector<fs::path>& formerUserFolders) {
  makeWithParents(folder);
  if (!isOnlyThisUsers(folder)) return false;
  makeWithFormerPuzzles(folder / "User", formerUserFolders);
  for (const char* name : kBrought) keepLink(folder / name, programFolder / name);
  return std::all_of(std::begin(kBrought), std::end(kBrought), [&folder](const char* name) {
    std::error_code none;
    return fs::exists(folder / name, none);
  });
}

}  // namespace PlayersFolder
