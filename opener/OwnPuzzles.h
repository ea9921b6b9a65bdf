#pragma once

#include <filesystem>
#include <functional>
#include <string>

/// Puts a puzzle file among the player's own puzzles, where the chooser lists it.
namespace OwnPuzzles {

/// Whether a puzzle of this name in the player's folder, another one, is replaced.
using Question = std::function<bool(const std::filesystem::path& existing)>;

/// Returns the name under which the puzzle now lies in `user`; empty when the answer was no. A file
/// that lies there already, or whose copy does, is not copied. Names that differ in the case of the
/// extension only are the same; a name without the extension gets it, and none begins with a dot.
/// Errors: std::exception, with the reason as a text for the player: no valid puzzle, not readable,
///         nowhere to put it, not writable.
std::filesystem::path add(const std::filesystem::path& file, const std::filesystem::path& user,
                          const Question& mayReplace);

}  // namespace OwnPuzzles
