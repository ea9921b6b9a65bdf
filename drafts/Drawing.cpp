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

}  // namespace

Drawing readDrawing(std::string_view text) {
  Drawing drawing;
  const std::vector<std::string> lines = linesOf(text);
  std::size_t first = 0;
  for (; first < lines.size(); ++first) {
    const std::size_t colon = lines[first].find(':');
    if (colon == std::string::npos) break;
    drawing.headers[lowerCase(trimmed(lines[first].substr(0, colon)))] =
        trimmed(lines[first].substr(colon + 1));
  }
  std::size_t width = 0;
  for (std::size_t i = first; i < lines.size(); ++i) width = std::max(width, lines[i].size());
  if (width > kLargestSide || lines.size() > kLargestSide)
    throw Refusal("The drawing is larger than any shape may be.");
  drawing.shape = solver::Shape(static_cast<int>(width), static_cast<int>(lines.size() - first));
  for (std::size_t i = first; i < lines.size(); ++i)
    for (std::size_t x = 0; x < lines[i].size(); ++x)
      readCell(drawing, lines[i][x], {static_cast<int>(x), static_cast<int>(i - first)}, i + 1);
  if (drawing.shape.area() == 0) throw Refusal("The drawing has no cells.");
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
