#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace pictures {

/// An icon of the chooser and the puzzle whose shape it shows.
struct IconEntry {
  std::string icon;    ///< the icon's key, also its file name
  std::string puzzle;  ///< the stem of the puzzle's drawing
};
/// The 36 icons of the catalogue, in its order, and "pento" (whose puzzle is empty).
const std::vector<IconEntry>& iconEntries();

/// The rows of a puzzle's drawing: a text file of "key: value" lines, an empty line, then one line
/// a row, '#' for a cell of the shape.
/// Errors: std::runtime_error for a file that cannot be read or holds no cell.
std::vector<std::string> readDrawing(const std::filesystem::path& file);

}  // namespace pictures
