#include "catalogue/Catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "drafts/Drawing.h"
#include "model/PuzzleFormat.h"
#include "solver/Solver.h"
#include "tests/files/FileBytes.h"
#include "tests/model/BareTarget.h"

namespace {

const std::filesystem::path kSource = QUINZOLITH_SOURCE_DIR;
constexpr int kBoard = PuzzleFormat::kBoardSize;
constexpr int kMostDifferent = 12;

std::filesystem::path fileOf(std::string_view key, const char* extension) {
  return kSource / "puzzles" / (std::string(key) + extension);
}

/// A puzzle's editable source.
puzzle::Drawing drawingOf(std::string_view key) {
  return puzzle::readDrawing(bytesOf(fileOf(key, ".txt")));
}

solver::Problem problemOf(std::string_view key) {
  const puzzle::Drawing drawing = drawingOf(key);
  return {drawing.shape, puzzle::readPieces(drawing.headers.at("pieces"))};
}

/// Loads every file as the developer's build loads it into the editor.
class CataloguePuzzles : public testing::Test {
 protected:
  void SetUp() override { basTiles::fDeveloperVersion = true; }

  solver::Shape arrangement() const {
    solver::Shape covered(kBoard, kBoard);
    for (int x = 0; x < kBoard; ++x)
      for (int y = 0; y < kBoard; ++y) covered.set({x, y}, editor.PentoID(x, y) > 0);
    return covered;
  }
  solver::PieceSet pieces() const {
    solver::PieceSet set = solver::PieceSet::ofEach(0);
    for (const auto& [id, piece] : editor.PentoCollection()) ++set[piece->PentoType()];
    return set;
  }

  BareWindows windows;
  const PENTOGRID& editor = windows.editor.grid;
};

/// The shape's cells in whichever of its eight positions comes first, so that equal shapes are
/// equal however they lie.
std::vector<solver::Cell> canonical(const solver::Shape& shape) {
  std::vector<solver::Cell> first;
  for (const solver::Symmetry symmetry : solver::kSymmetries) {
    std::vector<solver::Cell> cells = shape.trimmed().transformed(symmetry).trimmed().cells();
    if (first.empty() || cells < first) first = std::move(cells);
  }
  return first;
}

solver::Shape enlarged(int type, int times) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(type));
  solver::Shape shape(piece.Width() * times, piece.Height() * times);
  for (int cell = 0; cell < PENTO::kCells; ++cell)
    for (int x = 0; x < times; ++x)
      for (int y = 0; y < times; ++y)
        shape.set({piece.GridX(cell) * times + x, piece.GridY(cell) * times + y});
  return shape;
}

bool isCentred(const solver::Shape& onBoard) {
  int left = kBoard, right = -1, top = kBoard, bottom = -1;
  for (const solver::Cell cell : onBoard.cells()) {
    left = std::min(left, cell.x);
    right = std::max(right, cell.x);
    top = std::min(top, cell.y);
    bottom = std::max(bottom, cell.y);
  }
  return std::abs(left - (kBoard - 1 - right)) <= 1 && std::abs(top - (kBoard - 1 - bottom)) <= 1 &&
         left >= 1 && top >= 1;
}

}  // namespace

TEST(Catalogue, ListsWhatLiesInTheFolderAndNothingElse) {
  std::set<std::string> listed, files, drawings;
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    listed.emplace(entry.key);
    EXPECT_EQ(drawingOf(entry.key).headers.at("title"), entry.title);
    EXPECT_TRUE(exists(kSource / "pictures/icons" / (std::string(entry.icon) + ".png")));
  }
  for (const auto& file : std::filesystem::directory_iterator(kSource / "puzzles")) {
    if (file.path().extension() == ".qzl") files.insert(file.path().stem());
    if (file.path().extension() == ".txt") drawings.insert(file.path().stem());
  }
  drawings.erase("CMakeLists");
  EXPECT_EQ(listed, files);
  EXPECT_EQ(listed, drawings);
}

TEST(Catalogue, GrowsFromTabToTabAndRepeatsNoPieceBeforeItMust) {
  const std::map<Catalogue::Tab, std::pair<int, int>> sizes{{Catalogue::kNovice, {3, 6}},
                                                            {Catalogue::kEasy, {4, 4}},
                                                            {Catalogue::kIntermediate, {6, 9}},
                                                            {Catalogue::kExpert, {9, 15}}};
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    SCOPED_TRACE(entry.key);
    const solver::PieceSet supply = problemOf(entry.key).supply;
    EXPECT_GE(supply.total(), sizes.at(entry.tab).first);
    EXPECT_LE(supply.total(), sizes.at(entry.tab).second);
    const int mostOfOne = *std::max_element(supply.count.begin(), supply.count.end());
    EXPECT_LE(mostOfOne, supply.total() <= kMostDifferent ? 1 : 2);
  }
}

TEST(Catalogue, HasNoShapeTwiceAndDoublesNinePentominoesAndTriplesThree) {
  std::map<std::vector<solver::Cell>, std::string_view> seen;
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    SCOPED_TRACE(entry.key);
    const auto shape = canonical(problemOf(entry.key).shape);
    const auto [other, isNew] = seen.emplace(shape, entry.key);
    EXPECT_TRUE(isNew) << "is " << other->second;
    if (!entry.title.starts_with("Pentomino ")) continue;
    const int type = pentominoType(entry.title.back());
    EXPECT_EQ(std::stoi(std::string(entry.key.substr(5))), type + 1);
    EXPECT_EQ(shape, canonical(enlarged(type, entry.tab == Catalogue::kEasy ? 2 : 3)));
  }
}

// The bytes that the model writes for the rebuilt arrangement are the file's own: signature,
// version, lock, flags, records and length in one comparison.
TEST_F(CataloguePuzzles, RebuildTheirDrawings) {
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    SCOPED_TRACE(entry.key);
    ASSERT_TRUE(basTiles::LoadPuzzle(fileOf(entry.key, ".qzl"), true)) << basTiles::LastFileError;
    const solver::Problem problem = problemOf(entry.key);
    EXPECT_EQ(arrangement().trimmed(), problem.shape.trimmed());
    EXPECT_TRUE(isCentred(arrangement()));
    EXPECT_EQ(pieces(), problem.supply);
    EXPECT_EQ(bytesOf(fileOf(entry.key, ".qzl")),
              PuzzleFormat::write(editor, PuzzleFormat::kLocked, {1, 1, 7}));
  }
}

// The table was made by the plain search; the count here takes the fastest strategy. None is zero.
TEST(Catalogue, HasAsManySolutionsAsItsProofSays) {
  std::ifstream proof(kSource / "puzzles/PROOF.md");
  std::map<std::string, std::uint64_t> proved;
  for (std::string line; std::getline(proof, line);) {
    std::vector<std::string> parts;
    std::istringstream row(line);
    for (std::string part; std::getline(row, part, '|');) parts.push_back(part);
    if (parts.size() == 5 && parts[3].find_first_of("0123456789") != std::string::npos)
      proved[parts[1].substr(1, parts[1].size() - 2)] = std::stoull(parts[3]);
  }
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    SCOPED_TRACE(entry.key);
    const solver::Work work =
        solver::countSolutions(problemOf(entry.key), solver::Counting::UpToSymmetry);
    EXPECT_EQ(work.solutions, proved[std::string(entry.key)]);
    EXPECT_GT(work.solutions, 0u);
  }
}
