#include "drafts/Drawing.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "drafts/Refusal.h"

namespace puzzle {

namespace {

std::string trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return std::string(text);
}

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

constexpr std::size_t kLargestSide = 1000;  // beyond it a file is no drawing

void readCell(Drawing& drawing, char c, solver::Cell cell, std::size_t line) {
  if (c == '.' || c == ' ') return;
  const int type = pentominoType(c);
  if (c != '#' && type < 0)
    throw Refusal("Line " + std::to_string(line) + ", column " + std::to_string(cell.x + 1) +
                  " of the drawing: expected '.', '#' or the letter of a piece.");
  drawing.shape.set(cell);
  if (c != '#') drawing.types[cell] = type;
}

/// A bare first line that cannot belong to the picture. One with '#' is a row of cells with a slip
/// of the pen, unless the picture is set off by an empty line.
bool isTitle(const std::vector<std::string>& lines) {
  if (lines.empty() || lines[0].find(':') != std::string::npos) return false;
  const auto isCell = [](char c) {
    return c == '#' || c == '.' || c == ' ' || pentominoType(c) >= 0;
  };
  if (std::ranges::all_of(lines[0], isCell)) return false;
  const bool isSetOff = lines.size() > 1 && trimmed(lines[1]).empty();
  return isSetOff || lines[0].find('#') == std::string::npos;
}

/// At least one letter, and no other mark of a cell, but not only the one piece that is straight.
bool isLetters(const std::string& line) {
  return std::ranges::all_of(line, [](char c) { return c == ' ' || pentominoType(c) >= 0; }) &&
         std::ranges::any_of(line, [](char c) { return c != ' ' && c != 'I' && c != 'i'; });
}

/// Reads the title and the lines "name: value"; the number of the picture's first line.
std::size_t readHeaders(Drawing& drawing, const std::vector<std::string>& lines) {
  std::size_t first = isTitle(lines) ? 1 : 0;
  if (first > 0) drawing.headers["title"] = trimmed(lines[0]);
  for (; first < lines.size(); ++first) {
    const std::size_t colon = lines[first].find(':');
    if (colon == std::string::npos) break;
    drawing.headers[lowerCase(trimmed(lines[first].substr(0, colon)))] =
        trimmed(lines[first].substr(colon + 1));
  }
  while (first < lines.size() && trimmed(lines[first]).empty()) ++first;
  return first;
}

void readPicture(Drawing& drawing, const std::vector<std::string>& lines, std::size_t first) {
  std::size_t width = 0;
  for (std::size_t i = first; i < lines.size(); ++i) width = std::max(width, lines[i].size());
  if (width > kLargestSide || lines.size() > kLargestSide)
    throw Refusal("The drawing is larger than any shape may be.");
  drawing.shape = solver::Shape(static_cast<int>(width), static_cast<int>(lines.size() - first));
  for (std::size_t i = first; i < lines.size(); ++i)
    for (std::size_t x = 0; x < lines[i].size(); ++x)
      readCell(drawing, lines[i][x], {static_cast<int>(x), static_cast<int>(i - first)}, i + 1);
}

}  // namespace

std::string Drawing::title() const {
  const auto title = headers.find("title");
  return title == headers.end() ? std::string() : title->second;
}

Drawing readDrawing(std::string_view text) {
  Drawing drawing;
  const std::vector<std::string> lines = linesOf(text);
  const std::size_t first = readHeaders(drawing, lines);
  readPicture(drawing, lines, first);
  if (drawing.shape.area() == 0) throw Refusal("The drawing has no cells.");
  if (drawing.title().empty() && first < lines.size() && isLetters(lines[first]))
    drawing.perhapsTitle = trimmed(lines[first]);
  return drawing;
}

solver::PieceSet readPieces(std::string_view letters) {
  if (letters == "all") return solver::PieceSet::ofEach(1);
  solver::PieceSet pieces;
  for (const char c : letters) {
    if (c == ' ' || c == ',') continue;
    const int type = pentominoType(c);
    if (type < 0) throw Refusal("There is no piece called '" + std::string(1, c) + "'.");
    ++pieces[type];
  }
  return pieces;
}

std::string pieceNames(const solver::PieceSet& pieces) {
  constexpr int kMostListed = 15;
  if (pieces.total() <= kMostListed) return pieceLetters(pieces);
  solver::PieceSet each;
  for (int type = 0; type < PENTO::kTypes; ++type) each[type] = pieces[type] > 0 ? 1 : 0;
  std::string names;
  for (const char letter : pieceLetters(each)) {
    const int number = pieces[pentominoType(letter)];
    const bool alike = pieces.count == solver::PieceSet::ofEach(number).count;
    if (alike) return std::to_string(number) + " of each";
    names += (names.empty() ? "" : ", ") + std::to_string(number) + " " + letter;
  }
  return names;
}

std::string pieceLetters(const solver::PieceSet& pieces) {
  std::string letters;
  for (int type = 0; type < PENTO::kTypes; ++type)
    letters.append(static_cast<std::size_t>(pieces[type]), pentominoLetter(type));
  std::ranges::sort(letters);
  return letters;
}

solver::PieceSet piecesOf(const solver::Solution& solution) {
  solver::PieceSet pieces;
  for (const solver::Placement& placement : solution) ++pieces[placement.type];
  return pieces;
}

std::string picture(const solver::Shape& shape, const solver::Solution& solution) {
  std::vector<std::string> rows(static_cast<std::size_t>(shape.height()),
                                std::string(static_cast<std::size_t>(shape.width()), '.'));
  const auto at = [&](solver::Cell cell) -> char& {
    return rows.at(static_cast<std::size_t>(cell.y)).at(static_cast<std::size_t>(cell.x));
  };
  for (const solver::Cell cell : shape.cells()) at(cell) = '#';
  for (const solver::Placement& placement : solution)
    for (const solver::Cell cell : cellsOf(placement)) at(cell) = pentominoLetter(placement.type);
  std::string result;
  for (const std::string& row : rows) result += row + "\n";
  return result;
}

}  // namespace puzzle
