#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The standard puzzles: the one list that chooser, painter, robot and tests read.
namespace Catalogue {

/// The chooser's tabs, which are levels of difficulty.
enum Tab { kNovice = 0, kEasy = 1, kIntermediate = 2, kExpert = 3 };

/// The colour of what is transparent in the icons' files, as 0xAARRGGBB.
inline constexpr std::uint32_t kIconMask = 0xFFC0C0C0;

struct Entry {
  Tab tab;
  std::string_view key;    ///< stem of the puzzle file; may hold blanks and "#"
  std::string_view title;  ///< shown under the icon
  std::string_view icon;   ///< stem of the icon's file
};

/// All, in the order in which the chooser shows them.
std::span<const Entry> entries();

}  // namespace Catalogue
