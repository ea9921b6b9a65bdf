#pragma once

#include <string>
#include <vector>

namespace pictures {

/// An icon of the chooser and the puzzle whose shape it shows.
struct IconEntry {
  std::string icon;    ///< the icon's key, also its file name
  std::string puzzle;  ///< the stem of the puzzle's drawing
};
/// The icons of the catalogue, in its order, and "pento" (whose puzzle is empty).
const std::vector<IconEntry>& iconEntries();

}  // namespace pictures
