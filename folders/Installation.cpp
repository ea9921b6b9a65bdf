#include "folders/Installation.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "folders/Ownership.h"
#include "folders/PlayersFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFolder = 0755;

bool isBelow(const fs::path& folder, const fs::path& top) {
  return std::mismatch(top.begin(), top.end(), folder.begin(), folder.end()).first == top.end();
}

/// Whether a new folder could be made, as far as can be told without trying.
bool canBeMade(const fs::path& user) {
  std::error_code none;
  return fs::symlink_status(user, none).type() == fs::file_type::not_found &&
         ::faccessat(AT_FDCWD, user.parent_path().c_str(), W_OK, AT_EACCESS) == 0;
}

/// A name that is taken counts, whatever has it: a plain file is no folder, but is not replaced.
bool canHold(const fs::path& user) {
  const bool made = ::mkdir(user.c_str(), kNewFolder) == 0;
  if (isOnlyThisUsers(user)) return true;
  if (made) ::rmdir(user.c_str());
  return false;
}

bool mayHoldAll(const fs::path& programFolder) {
  std::error_code none;
  return fs::is_directory(programFolder / "puzzles", none) && !isPackages(programFolder);
}

}  // namespace

bool isPackages(const fs::path& folder) {
  return isBelow(folder, "/usr") && !isBelow(folder, "/usr/local");
}

Seam<fs::path> Installation::formerUser("/opt/Kelvo Software/Quinzolith/User");

Installation Installation::find(const fs::path& programFolder) {
  if (mayHoldAll(programFolder) && canHold(programFolder / "User"))
    return {programFolder, programFolder / "User"};
  const fs::path own = PlayersFolder::path();
  if (own.empty()) return {programFolder, {}};
  const bool whole =
      PlayersFolder::prepare(own, programFolder, {programFolder / "User", *formerUser});
  const bool users = isOnlyThisUsers(own);
  return {whole ? own : programFolder, users ? own / "User" : fs::path()};
}

fs::path Installation::expectedUser(const fs::path& programFolder) {
  const fs::path user = programFolder / "User";
  if (mayHoldAll(programFolder) && (canBeMade(user) || isOnlyThisUsers(user))) return user;
  const fs::path own = PlayersFolder::path();
  return own.empty() ? own : own / "User";
}
