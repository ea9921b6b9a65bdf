#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

/// The extension of puzzle files; in a name its letters may have any case.
inline constexpr const char* kPuzzleExtension = ".qzl";

/// No puzzle file has more bytes; usual ones have a few hundred.
inline constexpr std::size_t kMostPuzzleBytes = std::size_t{1} << 20;

/// True for names that the chooser lists: not of a dot-file, and with the extension.
bool isPuzzleName(const std::filesystem::path& name);
