#include "catalogue/Catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "solver/Solver.h"

namespace {

const std::filesystem::path kSource = QUINZOLITH_SOURCE_DIR;
constexpr int kBoard = 14;
constexpr int kMostDifferent = 12;

/// A puzzle's editable source.
struct Drawing {
  std::string title, pieces;
  Shape shape;
};

Drawing drawingOf(std::string_view key) {
  std::ifstream in(kSource / "puzzles" / (std::string(key) + ".txt"));
  Drawing drawing;
  std::vector<std::string> rows;
  for (std::string line; std::getline(in, line) && !line.empty();) {
    const std::size_t colon = line.find(": ");
    (line.substr(0, colon) == "title" ? drawing.title : drawing.pieces) = line.substr(colon + 2);
  }
  for (std::string line; std::getline(in, line);) rows.push_back(line);
  if (rows.empty()) return drawing;
  drawing.shape = Shape(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
  for (int y = 0; y < drawing.shape.height(); ++y) {
    const std::string& row = rows[static_cast<std::size_t>(y)];
    for (int x = 0; x < drawing.shape.width(); ++x)
      drawing.shape.set({x, y}, row.at(static_cast<std::size_t>(x)) == '#');
  }
  return drawing;
}

PieceSet supplyOf(const std::string& letters) {
  PieceSet supply = PieceSet::ofEach(0);
  for (const char letter : letters) ++supply[pentominoType(letter)];
  return supply;
}

std::filesystem::path fileOf(std::string_view key) {
  return kSource / "puzzles" / (std::string(key) + ".qzl");
}

class EditorGrid : public PuzzleTarget {
 public:
  EditorGrid() { grid_.SetGridSize(kBoard, kBoard); }
  PENTOGRID* Grid() const override { return &grid_; }
  void RemoveFloatingPento() override {}
  void PaintAll() override {}

 private:
  mutable PENTOGRID grid_;
};

/// Loads every file as the developer's build loads it into the editor.
class CataloguePuzzles : public testing::Test {
 protected:
  void SetUp() override {
    basTiles::targets.Editor = &editor;
    basTiles::fDeveloperVersion = true;
  }
  void TearDown() override {
    basTiles::targets.Editor = nullptr;
    basTiles::fDeveloperVersion = false;
  }

  Shape arrangement() const {
    Shape covered(kBoard, kBoard);
    for (int x = 0; x < kBoard; ++x)
      for (int y = 0; y < kBoard; ++y) covered.set({x, y}, editor.Grid()->PentoID(x, y) > 0);
    return covered;
  }
  PieceSet pieces() const {
    PieceSet set = PieceSet::ofEach(0);
    for (const auto& [id, piece] : editor.Grid()->PentoCollection()) ++set[piece->PentoType()];
    return set;
  }

  EditorGrid editor;
};

/// The shape's cells in whichever of its eight positions comes first, so that equal shapes are
/// equal however they lie.
std::vector<Cell> canonical(const Shape& shape) {
  std::vector<Cell> first;
  for (const Symmetry symmetry : kSymmetries) {
    std::vector<Cell> cells = shape.trimmed().transformed(symmetry).trimmed().cells();
    if (first.empty() || cells < first) first = std::move(cells);
  }
  return first;
}

Shape enlarged(int type, int times) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(type));
  Shape shape(piece.Width() * times, piece.Height() * times);
  for (int cell = 0; cell < PENTO::kCells; ++cell)
    for (int x = 0; x < times; ++x)
      for (int y = 0; y < times; ++y)
        shape.set({piece.GridX(cell) * times + x, piece.GridY(cell) * times + y});
  return shape;
}

bool isCentred(const Shape& onBoard) {
  int left = kBoard, right = -1, top = kBoard, bottom = -1;
  for (const Cell cell : onBoard.cells()) {
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
    EXPECT_EQ(drawingOf(entry.key).title, entry.title);
    EXPECT_TRUE(exists(kSource / "pictures/icons" / (std::string(entry.icon) + ".png")));
  }
  for (const auto& file : std::filesystem::directory_iterator(kSource / "puzzles")) {
    if (file.path().extension() == ".qzl") files.insert(file.path().stem());
    if (file.path().extension() == ".txt") drawings.insert(file.path().stem());
  }
  drawings.erase("CMakeLists");
  EXPECT_EQ(listed.size(), 36u);
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
    const PieceSet supply = supplyOf(drawingOf(entry.key).pieces);
    EXPECT_GE(supply.total(), sizes.at(entry.tab).first);
    EXPECT_LE(supply.total(), sizes.at(entry.tab).second);
    const int mostOfOne = *std::max_element(supply.count.begin(), supply.count.end());
    EXPECT_LE(mostOfOne, supply.total() <= kMostDifferent ? 1 : 2);
  }
}

TEST(Catalogue, HasNoShapeTwice) {
  std::map<std::vector<Cell>, std::string_view> seen;
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    const auto [other, isNew] = seen.emplace(canonical(drawingOf(entry.key).shape), entry.key);
    EXPECT_TRUE(isNew) << entry.key << " is " << other->second;
  }
}

TEST(Catalogue, DoublesNinePentominoesAndTriplesThree) {
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    if (entry.title.substr(0, 10) != "Pentomino ") continue;
    SCOPED_TRACE(entry.key);
    const int type = pentominoType(entry.title.back());
    EXPECT_EQ(std::stoi(std::string(entry.key.substr(5))), type + 1);
    const int times = entry.tab == Catalogue::kEasy ? 2 : 3;
    EXPECT_EQ(canonical(drawingOf(entry.key).shape), canonical(enlarged(type, times)));
  }
}

// The bytes that the model writes for the rebuilt arrangement are the file's own: signature,
// version, lock, flags, records and length in one comparison.
TEST_F(CataloguePuzzles, RebuildTheirDrawings) {
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    SCOPED_TRACE(entry.key);
    const Drawing drawing = drawingOf(entry.key);
    ASSERT_TRUE(basTiles::LoadPuzzle(fileOf(entry.key), true)) << basTiles::LastFileError;
    EXPECT_EQ(arrangement().trimmed(), drawing.shape);
    EXPECT_TRUE(isCentred(arrangement()));
    EXPECT_EQ(pieces(), supplyOf(drawing.pieces));
    std::ostringstream bytes;
    bytes << std::ifstream(fileOf(entry.key), std::ios::binary).rdbuf();
    EXPECT_EQ(bytes.str(), PuzzleFormat::write(*editor.Grid(), {1, 1, 7}, PuzzleFormat::kLocked));
  }
}

TEST(Catalogue, IsSolvedFromShapesAndPiecesAlone) {
  for (const Catalogue::Entry& entry : Catalogue::entries()) {
    SCOPED_TRACE(entry.key);
    const Drawing drawing = drawingOf(entry.key);
    const auto answer = Solver::findSolution({drawing.shape, supplyOf(drawing.pieces)});
    ASSERT_TRUE(answer.solution);
    Shape covered(drawing.shape.width(), drawing.shape.height());
    for (const Placement& placement : *answer.solution) {
      for (const Cell cell : cellsOf(placement)) {
        EXPECT_FALSE(covered.contains(cell));
        covered.set(cell);
      }
    }
    EXPECT_EQ(covered, drawing.shape);
  }
}

// The table was made by the plain search; the count here takes the fastest road.
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
    const Drawing drawing = drawingOf(entry.key);
    const Work work =
        Solver::countSolutions({drawing.shape, supplyOf(drawing.pieces)}, Counting::UpToSymmetry);
    EXPECT_EQ(work.solutions, proved[std::string(entry.key)]);
  }
}
