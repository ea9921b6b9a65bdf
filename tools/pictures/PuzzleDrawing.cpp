#include <fstream>
#include <stdexcept>

#include "tools/pictures/PuzzleIcons.h"

namespace pictures {

const std::vector<IconEntry>& iconEntries() {
  static const std::vector<IconEntry> entries{{"bluecircle", "blue circle"},
                                              {"critter", "critter"},
                                              {"ten", "ten"},
                                              {"plus", "plus"},
                                              {"smile", "smile"},
                                              {"coffee", "coffee"},
                                              {"tinytriangle", "tiny triangle"},
                                              {"tinybox", "tiny box"},
                                              {"donut", "donut"},
                                              {"pento01", "pento01"},
                                              {"pento02", "pento02"},
                                              {"pento03", "pento03"},
                                              {"pento04", "pento04"},
                                              {"pento05", "pento05"},
                                              {"pento06", "pento06"},
                                              {"pento10", "pento10"},
                                              {"pento11", "pento11"},
                                              {"pento12", "pento12"},
                                              {"triangle", "triangle"},
                                              {"smallbox", "small box"},
                                              {"arrow", "arrow #1"},
                                              {"q", "q"},
                                              {"o", "o"},
                                              {"largebox", "bigger box"},
                                              {"face", "face"},
                                              {"rocket", "rocket"},
                                              {"eight", "eight"},
                                              {"largetriangle", "large triangle"},
                                              {"square", "square"},
                                              {"plane", "plane"},
                                              {"pento07", "pento07"},
                                              {"pento08", "pento08"},
                                              {"pento09", "pento09"},
                                              {"question", "question"},
                                              {"christmas", "christmas"},
                                              {"house", "big house"},
                                              {"pento", ""}};
  return entries;
}

std::vector<std::string> readDrawing(const std::filesystem::path& file) {
  std::ifstream in(file);
  std::vector<std::string> rows;
  bool body = false, cells = false;
  for (std::string line; std::getline(in, line);) {
    if (body) {
      rows.push_back(line);
      cells = cells || line.find('#') != std::string::npos;
    }
    body = body || line.empty();
  }
  if (!cells) throw std::runtime_error("No drawing of a puzzle: " + file.string());
  return rows;
}

}  // namespace pictures
