#include "art/PictureList.h"

#include <array>

#include "art/Canvas.h"
#include "art/Drawings.h"
#include "art/PuzzleIcons.h"
#include "model/PENTO.h"

namespace pictures {
namespace {

using List = std::vector<PictureFile>;

struct Density {
  double scale;
  const char* suffix;
};
constexpr std::array<Density, 2> kPlainAndDoubled{{{1, ""}, {2, "@2x"}}};
constexpr std::array<Density, 3> kWithOneAndAHalf{{{1, ""}, {1.5, "@1.5x"}, {2, "@2x"}}};

template <typename Densities, typename Make>
void add(List& list, const std::string& name, const char* extension, const Densities& densities,
         Make make) {
  for (const Density& density : densities)
    list.push_back({"pictures/" + name + density.suffix + extension,
                    [make, scale = density.scale] { return make(scale); }});
}

void addWindows(List& list) {
  add(list, "splash", ".png", kPlainAndDoubled, splash);
  add(list, "about256", ".bmp", kPlainAndDoubled, [](double s) { return in256Colours(splash(s)); });
  add(list, "waytogo", ".png", kPlainAndDoubled, wayToGo);
  add(list, "waytogo256", ".bmp", kPlainAndDoubled,
      [](double s) { return in256Colours(wayToGo(s)); });
  add(list, "background", ".png", kPlainAndDoubled, background);
  for (const std::string name : {"play", "edit", "visit", "email", "retry", "open", "quit"})
    add(list, "option-" + name, ".png", kPlainAndDoubled,
        [name](double s) { return optionIcon(name, s); });
}

void addCursors(List& list) {
  add(list, "hand", ".png", kPlainAndDoubled, handCursor);
  add(list, "pointer", ".png", kPlainAndDoubled, pointerCursor);
  add(list, "clear", ".png", kPlainAndDoubled, clearCursor);
}

void addButtons(List& list) {
  for (int type = 0; type < PENTO::kTypes; ++type)
    add(list, "button-" + std::to_string(type), ".png", kWithOneAndAHalf,
        [type](double s) { return pieceButton(type, s); });
  const std::array<const char*, 4> ways{"up", "right", "down", "left"};
  for (int turns = 0; turns < 4; ++turns)
    add(list, std::string("arrow-") + ways[static_cast<std::size_t>(turns)], ".png",
        kWithOneAndAHalf, [turns](double s) { return arrow(turns, s); });
  add(list, "trash", ".png", kWithOneAndAHalf, trash);
}

void addIcons(List& list, const std::filesystem::path& puzzles) {
  for (const IconEntry& entry : iconEntries())
    add(list, "icons/" + entry.icon, ".png", kPlainAndDoubled,
        [key = entry.icon, puzzles](double s) {
          return puzzleIcon(key, puzzles, static_cast<int>(s));
        });
  for (const int edge : {16, 22, 24, 32, 48, 64, 128, 256})
    list.push_back({"pictures/quinzolith-" + std::to_string(edge) + ".png",
                    [edge] { return programIcon(edge); }});
}

}  // namespace

std::vector<PictureFile> allPictures(const std::filesystem::path& source) {
  const std::filesystem::path puzzles = source / "puzzles";
  List list;
  list.push_back({"tiles/tiles.jpg", atlas});
  list.push_back({"tiles/tiles.bmp", [] { return in256Colours(atlas()); }});
  addWindows(list);
  addCursors(list);
  addButtons(list);
  addIcons(list, puzzles);
  list.push_back({"docs/pictures/textures.png", textureSheet});
  list.push_back({"docs/pictures/icons.png", [puzzles] { return iconSheet(puzzles); }});
  return list;
}

}  // namespace pictures
