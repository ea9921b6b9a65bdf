#pragma once

#include <filesystem>
#include <vector>

/// A player's own installation folder, for a program that is installed where the player can keep
/// nothing: `User` with the player's puzzles, and links to what the program brings.
namespace PlayersFolder {

/// What the program brings, by its names in an installation folder.
inline constexpr const char* kBrought[] = {"puzzles", "tiles", "Quinzolith.chm"};

/// `$XDG_DATA_HOME/quinzolith`, by default `~/.local/share/quinzolith`; an empty or relative
/// variable is as if absent (XDG Base Directory Specification). Empty where there is no home.
std::filesystem::path path();

/// Makes the folder (mode 0700) where it is missing, its `User` (see makeWithFormerPuzzles), and
/// its links to what lies in `programFolder`; links that lead elsewhere are made anew, anything
/// else in their places is the player's and stays.
///
/// Whether all of the folder can be used: it is the user's only, and holds, or links to, everything
/// that the program brings. Where a home cannot be written it is what was there before.
bool prepare(const std::filesystem::path& folder, const std::filesystem::path& programFolder,
             const std::vector<std::filesystem::path>& formerUserFolders);

}  // namespace PlayersFolder
