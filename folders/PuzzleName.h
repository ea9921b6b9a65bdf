#pragma once

#include <filesystem>
#include <string>

/// The extension of puzzle files; in a name its letters may have any case.
inline constexpr const char* kPuzzleExtension = ".qzl";

/// True for names that the chooser lists: not of a dot-file, and with the extension.
bool isPuzzleName(const std::filesystem::path& name);
