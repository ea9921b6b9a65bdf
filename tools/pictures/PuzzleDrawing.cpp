#include <fstream>
#include <stdexcept>

#include "play/Catalogue.h"
#include "tools/pictures/PuzzleIcons.h"

namespace pictures {

const std::vector<IconEntry>& iconEntries() {
  static const std::vector<IconEntry> entries = [] {
    std::vector<IconEntry> all;
    for (const Catalogue::Entry& entry : Catalogue::entries())
      all.push_back({std::string(entry.icon), std::string(entry.key)});
    all.push_back({"pento", ""});
    return all;
  }();
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
