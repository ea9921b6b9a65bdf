#include "folders/Installation.h"

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

/// A name that is taken counts, whatever has it: a plain file is no folder, but is not replaced.
bool canHold(const fs::path& user) {
  const bool made = ::mkdir(user.c_str(), kNewFolder) == 0;
  if (isOnlyThisUsers(user)) return true;
  if (made) ::rmdir(user.c_str());
  return false;
}

bool holdsAll(const fs::path& programFolder) {
  std::error_code none;
  return fs::is_directory(programFolder / "puzzles", none) && !isPackages(programFolder) &&
         canHold(programFolder / "User");
}

}  // namespace

bool isPackages(const fs::path& folder) {
  return isBelow(folder, "/usr") && !isBelow(folder, "/usr/local");
}

Seam<fs::path> Installation::formerUser("/opt/Kelvo Software/Quinzolith/User");

Installation Installation::find(const fs::path& programFolder) {
  if (holdsAll(programFolder)) return {programFolder, programFolder / "User"};
  const fs::path own = PlayersFolder::path();
  if (own.empty()) return {programFolder, {}};
  const bool whole =
      PlayersFolder::prepare(own, programFolder, {programFolder / "User", *formerUser});
  const bool users = isOnlyThisUsers(own);
  return {whole ? own : programFolder, users ? own / "User" : fs::path()};
}
