#include "art/IconMarks.h"

#include <map>

namespace pictures {

char IconMarks::at(const QPoint& cell) const {
  const auto x = static_cast<std::size_t>(cell.x()), y = static_cast<std::size_t>(cell.y());
  return y < rows.size() && x < rows[y].size() ? rows[y][x] : '#';  // less than 0 is past the end
}

const IconMarks& iconMarks(const std::string& iconKey) {
  static const IconMarks none;
  static const std::map<std::string, IconMarks> marks{
      // A disc looks like a ball, above all with a hole where a ball shines; a ring does not. Its
      // inside is round, since a square one made it a washing machine.
      {"bluecircle", {{".ccc.", "chccc", "ccccc", "ccccc", ".ccc."}, lch(95, 5, 260), true}},
      // Ears and a tail make a cat; eyes on stalks and spots make no beast that is known.
      {"critter",
       {{"e.e....", "###...#", "#.#...o", "###o###", ".##o#o.", ".##.##."}, lch(84, 60, 110)}},
      // A parcel with a ribbon, knotted in the hole: a cross that stands alone, bright or dark,
      // would make it a first-aid case.
      {"smallbox", {{"...o...", "...i...", "ooiiioo", "...i...", "...o..."}, lch(86, 64, 84)}},
      // Squares around squares are no box with a hole.
      {"square",
       {{"########", "#oooooo#", "#o####o#", "#o#..#o#", "#o#..#o#", "#o####o#", "#oooooo#",
         "########"},
        lch(84, 18, 235),
        true}},
  };
  const auto found = marks.find(iconKey);
  return found == marks.end() ? none : found->second;
}

}  // namespace pictures
