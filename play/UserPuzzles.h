#pragma once

#include <filesystem>
#include <vector>

/// The puzzles of a folder: the names of its ordinary files that end in ".qzl" in any case of
/// letters and are no dot-files, sorted as the user's language does. What cannot be read is left
/// out.
std::vector<std::filesystem::path> puzzlesIn(const std::filesystem::path& folder);
