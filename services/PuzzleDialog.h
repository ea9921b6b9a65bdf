#pragma once

#include <filesystem>

#include "platform/Dialogs.h"

/// The file dialog for puzzles as the windows' designs have it: title, filter and extension.
Dialogs::FileDialog puzzleDialog();

/// Where it starts: the user's puzzle folder, or the user's documents where there is none or
/// nothing may be written.
std::filesystem::path puzzleFolder();
