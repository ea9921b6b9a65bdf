#include "drafts/PuzzleFile.h"

#include <algorithm>

#include "drafts/Refusal.h"

namespace puzzle {

namespace {

bool isValidRecord(const PuzzleFormat::PieceRecord& record) {
  return record.type >= 0 && record.type < PENTO::kTypes && record.rotations >= 0 &&
         record.rotations < 4 && (record.flips == 0 || record.flips == 1);
}

/// Collects what is wrong with the pieces and marks the cells that they cover.
void checkPiece(const PuzzleFormat::PieceRecord& record, std::size_t number, solver::Shape& covered,
                std::vector<std::string>& problems) {
  const std::string name = "Piece " + std::to_string(number);
  if (!isValidRecord(record)) {
    problems.push_back(name + " has an unknown type or orientation.");
    return;
  }
  const std::string piece = name + " (" + pentominoLetter(record.type) + ")";
  bool overlaps = false, outside = false;
  for (const solver::Cell cell :
       solver::cellsOf({record.type, record.x, record.y, record.rotations, record.flips})) {
    const bool inArea = cell.x >= 1 && cell.x <= kArea && cell.y >= 1 && cell.y <= kArea;
    outside = outside || !inArea;
    overlaps = overlaps || covered.contains(cell);
    if (inArea) covered.set(cell);
  }
  if (outside) problems.push_back(piece + " reaches out of the playing area.");
  if (overlaps) problems.push_back(piece + " overlaps an earlier piece.");
}

void checkFlags(const PuzzleFile& file, const solver::Shape& covered,
                std::vector<std::string>& problems) {
  if (std::ranges::any_of(file.flags, [](int flag) { return flag != 0 && flag != -1; }))
    problems.push_back("A cell has a flag other than 0 and -1.");
  const solver::Shape shape = file.shape();
  int disagreeing = 0;
  for (int x = 0; x < kBoard; ++x)
    for (int y = 0; y < kBoard; ++y)
      disagreeing += shape.contains({x, y}) != covered.contains({x, y});
  if (disagreeing > 0)
    problems.push_back("The cells and the pieces disagree at " + std::to_string(disagreeing) +
                       (disagreeing == 1 ? " place." : " places."));
}

std::vector<std::string> problemsOf(const PuzzleFile& file) {
  std::vector<std::string> problems;
  if (file.lockFlag != PuzzleFormat::kLocked && file.lockFlag != PuzzleFormat::kUnlocked)
    problems.push_back("The lock flag is neither U nor L.");
  if (file.pieces.empty()) problems.push_back("The puzzle has no pieces.");
  if (file.pieces.size() > PuzzleFormat::kMostPieces)
    problems.push_back("The puzzle has " + std::to_string(file.pieces.size()) +
                       " pieces; it may have at most " + std::to_string(PuzzleFormat::kMostPieces) +
                       ".");
  solver::Shape covered(kBoard, kBoard);
  for (std::size_t i = 0; i < file.pieces.size(); ++i)
    checkPiece(file.pieces[i], i + 1, covered, problems);
  checkFlags(file, covered, problems);
  return problems;
}

}  // namespace

solver::Shape PuzzleFile::shape() const {
  solver::Shape shape(kBoard, kBoard);
  for (int x = 0; x < kBoard; ++x)
    for (int y = 0; y < kBoard; ++y)
      if (flags.at(static_cast<std::size_t>(x * kBoard + y)) == 0) shape.set({x, y});
  return shape;
}

solver::Solution PuzzleFile::solution() const {
  solver::Solution solution;
  for (const auto& record : pieces)
    solution.push_back({record.type, record.x, record.y, record.rotations, record.flips});
  return solution;
}

bool isPuzzleFile(std::string_view bytes) {
  return bytes.starts_with(PuzzleFormat::kSignature);
}

PuzzleFile readPuzzleFile(std::string_view bytes) {
  return {PuzzleFormat::read(bytes)};
}

std::vector<std::string> problemsOf(std::string_view bytes) {
  try {
    return problemsOf(readPuzzleFile(bytes));
  } catch (const std::runtime_error& error) {
    return {error.what()};
  }
}

std::string makePuzzleFile(solver::Solution solution, char lockFlag) {
  solver::Shape box(kBoard, kBoard);
  int right = 0, bottom = 0, left = kBoard * kBoard, top = left;
  for (const solver::Placement& placement : solution)
    for (const solver::Cell cell : cellsOf(placement)) {
      left = std::min(left, cell.x);
      top = std::min(top, cell.y);
      right = std::max(right, cell.x);
      bottom = std::max(bottom, cell.y);
    }
  const int width = right - left + 1, height = bottom - top + 1;
  if (width > kArea || height > kArea)
    throw Refusal("The shape is " + std::to_string(width) + " x " + std::to_string(height) +
                  " cells; the area has room for 12 x 12.");
  for (solver::Placement& placement : solution) {
    placement.x += 1 + (kArea - width) / 2 - left;
    placement.y += 1 + (kArea - height) / 2 - top;
    for (const solver::Cell cell : cellsOf(placement)) box.set(cell);
  }
  return PuzzleFormat::write(boardWith(box, solution), lockFlag);
}

PENTOGRID boardWith(const solver::Shape& shape, const solver::Solution& solution) {
  PENTOGRID grid;
  grid.SetGridSize(static_cast<std::int16_t>(shape.width()),
                   static_cast<std::int16_t>(shape.height()));
  for (int x = 0; x < shape.width(); ++x)
    for (int y = 0; y < shape.height(); ++y)
      if (!shape.contains({x, y})) grid.SetGridBackground(x, y);
  for (const solver::Placement& placement : solution) {
    const auto piece = std::make_shared<PENTO>();
    piece->PentoType(static_cast<std::int16_t>(placement.type));
    for (int i = 0; i < placement.rotations; ++i) piece->Rotate();
    for (int i = 0; i < placement.flips; ++i) piece->Flip();
    grid.AddPento(piece, placement.x, placement.y);
  }
  return grid;
}

}  // namespace puzzle
