#pragma once

#include <filesystem>
#include <vector>

/// Makes a folder for the player's puzzles, with copies of those of this user that lie in former
/// folders, which all users shared. Of two with one name the first folder's is taken. Whatever is
/// no ordinary .qzl file of this user, or cannot be read, is left where it is.
///
/// The folder gets its name when all copies are on the disk; where they fail it is not there, and
/// the next attempt begins anew. Nothing happens where the name is taken.
void makeWithFormerPuzzles(const std::filesystem::path& folder,
                           const std::vector<std::filesystem::path>& formerFolders);
