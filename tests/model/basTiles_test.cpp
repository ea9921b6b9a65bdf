#include "model/basTiles.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <system_error>

#include "model/PuzzleFormat.h"
#include "tests/model/GridCheck.h"
#include "tests/model/SamplePuzzle.h"

using basTiles::LastFileError;
using basTiles::LoadPuzzle;
using basTiles::SavePuzzle;
using ::testing::Test;

namespace {

constexpr std::size_t kFlag = 38, kCells = 39, kCount = 431, kPieces = 435;

void put(std::string& bytes, std::size_t offset, std::int64_t value, int size) {
  for (int i = 0; i < size; ++i)
    bytes.at(offset + static_cast<std::size_t>(i)) = static_cast<char>(value >> (8 * i) & 0xFF);
}

std::string withPiece(std::string bytes, std::initializer_list<int> fields) {
  for (const int field : fields) {
    bytes.append(2, '\0');
    put(bytes, bytes.size() - 2, field, 2);
  }
  return bytes;
}

/// A file whose shape is empty and whose pieces are still to come.
std::string headOf(const std::string& sample, std::int64_t count) {
  std::string bytes = sample.substr(0, kPieces);
  put(bytes, kCount, count, 4);
  return bytes;
}

class Tiles : public Test, protected SavedSample {
 protected:
  /// Loads these bytes; what the controls are asked is counted from here on.
  bool load(const std::string& bytes, bool toEditor = false) {
    windows.calls.clear();
    disk.files["other.qzl"] = bytes;
    return LoadPuzzle("other.qzl", toEditor);
  }

  /// Random numbers that are given out one by one.
  void script(std::vector<double> numbers) {
    drawn = 0;
    scripted.emplace(RandomNumbers::next,
                     [this, numbers = std::move(numbers)] { return numbers.at(drawn++); });
  }

  using Orientation = std::pair<int, int>;  ///< turns, mirrorings
  Orientation inTray(std::size_t piece) const {
    const PENTO& found = *tray.PentoCollection().at(piece);
    return {found.RotationCount, found.FlipCount};
  }

  /// What a load for play asks of the controls.
  const std::vector<std::string> playCalls{"tray RemoveFloatingPento", "board RemoveFloatingPento",
                                           "tray PaintAll", "board PaintAll"};
  PENTOGRID& board = windows.board.grid;
  PENTOGRID& tray = windows.tray.grid;
  PENTOGRID& editor = windows.editor.grid;
  std::size_t drawn = 0;
  std::optional<Replacement<std::function<double()>>> scripted;
};

TEST_F(Tiles, PlayGetsTheShapeOnTheBoardAndThePiecesInTheTray) {
  ASSERT_TRUE(load(sample + std::string(1000, 'x'))) << LastFileError;
  EXPECT_EQ(disk.lastCeiling, 435u + 10u * 32767u) << "no more than the largest legal file";
  for (int x = 0; x < 14; ++x)
    for (int y = 0; y < 14; ++y)
      EXPECT_EQ(board.PentoID(x, y), editor.PentoID(x, y) > 0 ? 0 : -1) << x << ", " << y;
  EXPECT_EQ(tray.PentoCollection().Count(), 3u);
  expectValidGrid(tray);
  EXPECT_EQ(windows.calls, playCalls);
  EXPECT_EQ(basTiles::CurrentPuzzleFile, "other.qzl");
}

TEST_F(Tiles, TheEditorGetsThePiecesAtTheirPlacesWhateverTheCellsSay) {
  const auto before = cellsOf(editor);
  std::string bytes = sample;
  for (std::size_t i = kCells; i < kCount; ++i) bytes[i] = static_cast<char>(i);
  ASSERT_TRUE(load(bytes, true)) << LastFileError;
  EXPECT_EQ(cellsOf(editor), before);
  EXPECT_EQ(windows.calls,
            (std::vector<std::string>{"editor RemoveFloatingPento", "editor PaintAll"}));
  EXPECT_EQ(basTiles::CurrentPuzzleFile, "other.qzl");
  EXPECT_EQ(tray.PentoCollection().Count(), 0u);
}

TEST_F(Tiles, EveryTruncationNamesTheMissingByte) {
  for (std::size_t length = 0; length < sample.size(); ++length) {
    for (const bool toEditor : {false, true}) {
      EXPECT_FALSE(load(sample.substr(0, length), toEditor));
      EXPECT_EQ(LastFileError,
                "The file ends too early: byte " + std::to_string(length) + " is missing.");
      for (const PENTOGRID* grid : {&editor, &board, &tray}) expectValidGrid(*grid);
    }
  }
}

TEST_F(Tiles, RandomNumbersAreDrawnInOrderRotationFlipThenXAndYForEachTry) {
  const std::string one = withPiece(headOf(sample, 1), {1, 4, 4, 3, 1});
  // Two turns, mirrored; the corner is ring and the bar is too long for column 5; column 3 will do.
  script({0.7, 0.5, 0.0, 0.0, 5.1 / 9, 4.1 / 36, 3.5 / 9, 30.2 / 36});
  ASSERT_TRUE(load(one)) << LastFileError;
  EXPECT_EQ(drawn, 8u);
  EXPECT_EQ(inTray(0), (Orientation{2, 1}));
  EXPECT_EQ(tray.PentoCollection().at(0)->X(), 3);
  EXPECT_EQ(tray.PentoCollection().at(0)->Y(), 30);
  script({0.99, 0.49, 3.5 / 9, 30.2 / 36});  // never three turns, nor mirrored below a half
  ASSERT_TRUE(load(one));
  EXPECT_EQ(inTray(0), (Orientation{2, 0}));

  basTiles::fRandomRotation = false;
  script({0.4, 2.1 / 9, 2.1 / 36});
  ASSERT_TRUE(load(one)) << LastFileError;
  EXPECT_EQ(drawn, 3u);
  EXPECT_EQ(inTray(0), (Orientation{3, 0}));
}

TEST_F(Tiles, AfterAHundredFailedTriesTheLoadStartsOverAndDrawsAnew) {
  std::vector<double> numbers{0.0, 0.0, 0.2, 0.2};  // the first piece lies
  numbers.insert(numbers.end(), {0.0, 0.0});        // the second one's orientation
  numbers.insert(numbers.end(), 202, 0.2);  // a hundred tries in its place, and a place not tried
  numbers.insert(numbers.end(), {0.4, 0.6, 0.3, 0.3, 0.0, 0.0, 0.3, 0.6});
  script(numbers);
  const std::string two = withPiece(withPiece(headOf(sample, 2), {8, 1, 1, 0, 0}), {8, 5, 5, 0, 0});
  const int readsBefore = disk.reads;
  ASSERT_TRUE(load(two)) << LastFileError;
  EXPECT_EQ(drawn, numbers.size());
  EXPECT_EQ(disk.reads - readsBefore, 2);
  ASSERT_EQ(tray.PentoCollection().Count(), 2u);
  EXPECT_EQ(inTray(0), (Orientation{1, 1}));
  EXPECT_EQ(tray.PentoID(tray.PentoCollection().at(0)->X() + 1, 10), 1);  // ids from 1 again
  EXPECT_EQ(windows.calls.size(), 6u);  // RemoveFloatingPento twice for each start, PaintAll once
}

TEST_F(Tiles, PiecesThatCannotFitEndInAMessage) {
  std::string many = headOf(sample, 60);  // 300 cells; the tray has 238
  for (int i = 0; i < 60; ++i) many = withPiece(many, {i % 12, 1, 1, 0, 0});
  const int readsBefore = disk.reads;
  EXPECT_FALSE(load(many));
  EXPECT_EQ(LastFileError, "The pieces of this puzzle do not fit into the tray.");
  EXPECT_EQ(disk.reads - readsBefore, basTiles::kMostRestarts + 1);
  EXPECT_NE(basTiles::CurrentPuzzleFile, "other.qzl");
  expectValidGrid(tray);
}

TEST_F(Tiles, ARefusedFileLeavesTheGridsAsFarAsItWasRead) {
  ASSERT_TRUE(load(sample));
  ASSERT_TRUE(LoadPuzzle("sample.qzl", false));
  const auto boardBefore = cellsOf(board);
  const auto trayBefore = cellsOf(tray);
  LastFileError = "old";
  EXPECT_FALSE(LoadPuzzle("missing.qzl", false));
  EXPECT_EQ(LastFileError, "File does not exist.");

  std::string bytes = sample;
  bytes[0] = 'q';
  EXPECT_FALSE(load(bytes));
  EXPECT_EQ(LastFileError, "This is not a valid Quinzolith Puzzle file.");
  EXPECT_TRUE(windows.calls.empty());
  EXPECT_EQ(cellsOf(board), boardBefore);
  EXPECT_EQ(cellsOf(tray), trayBefore);

  bytes = sample;
  bytes[kFlag] = 'u';
  EXPECT_FALSE(load(bytes));
  EXPECT_EQ(LastFileError, "This is not a valid Quinzolith puzzle.");
  EXPECT_EQ(windows.calls.size(), 2u);
  EXPECT_EQ(tray.PentoCollection().Count(), 0u);
  EXPECT_EQ(cellsOf(board), boardBefore);  // a cleared board keeps its empty and background cells

  EXPECT_FALSE(load(sample.substr(0, sample.size() - 1)));
  EXPECT_EQ(tray.PentoCollection().Count(), 2u);
  EXPECT_EQ(windows.calls, playCalls) << "what is left is also seen";
  EXPECT_FALSE(load(sample.substr(0, sample.size() - 1), true));
  EXPECT_EQ(windows.calls.back(), "editor PaintAll");
  EXPECT_EQ(basTiles::CurrentPuzzleFile, "sample.qzl");
}

TEST_F(Tiles, ALockedPuzzleIsForPlayAndForTheDeveloper) {
  basTiles::fDeveloperVersion = true;
  ASSERT_TRUE(SavePuzzle("locked.qzl", windows.editor));
  const std::string locked = disk.files.at("locked.qzl");
  EXPECT_EQ(locked[kFlag], 'L');
  EXPECT_TRUE(load(locked, true));
  basTiles::fDeveloperVersion = false;
  EXPECT_TRUE(load(locked));
  EXPECT_FALSE(load(locked, true));
  EXPECT_EQ(LastFileError, "You cannot edit the standard Quinzolith puzzles.");
  EXPECT_EQ(editor.PentoCollection().Count(), 0u);
  EXPECT_EQ(windows.calls, std::vector<std::string>{"editor RemoveFloatingPento"});
}

TEST_F(Tiles, ACountOfZeroOrLessMeansNoPiecesAndAnImpossibleNumberIsAnError) {
  for (const std::int64_t count : {0, -1, -32768}) {
    EXPECT_TRUE(load(headOf(sample, count))) << LastFileError;
    EXPECT_EQ(tray.PentoCollection().Count(), 0u);
  }
  for (const std::int64_t count : {std::int64_t{32768}, std::int64_t{-32769},
                                   std::int64_t{2147483647}, std::int64_t{-2147483647} - 1}) {
    EXPECT_FALSE(load(headOf(sample, count)));
    EXPECT_NE(LastFileError.find("impossible number of pieces"), std::string::npos);
  }
}

TEST_F(Tiles, StrangePieceNumbersAreTakenAsTheyCome) {
  basTiles::fRandomRotation = basTiles::fRandomFlip = false;
  // Remainders of huge numbers, nothing for negative ones.
  ASSERT_TRUE(load(
      withPiece(withPiece(headOf(sample, 2), {2, 1, 1, 32767, 32767}), {2, 6, 6, -3, -32768})));
  EXPECT_EQ(inTray(0), (Orientation{3, 1}));
  EXPECT_EQ(inTray(1), (Orientation{0, 0}));

  // A number that is no type: stored, and on the board as the single cell that its slots name.
  const std::string odd = withPiece(
      withPiece(withPiece(headOf(sample, 3), {12, 3, 4, 1, 0}), {-7, 5, 6, 0, 1}), {0, 3, 4, 0, 0});
  ASSERT_TRUE(load(odd, true));
  ASSERT_EQ(editor.PentoCollection().Count(), 2u);  // the third one overlaps and is left out
  EXPECT_EQ(editor.PentoAt(3, 4)->PentoType(), 12);
  EXPECT_EQ(editor.PentoAt(5, 6)->PentoType(), -7);
  ASSERT_TRUE(load(odd));
  EXPECT_EQ(tray.PentoCollection().Count(), 3u);
  expectValidGrid(tray);
}

TEST_F(Tiles, SavingOverALongerFileKeepsItsTailUnlessItIsFarTooLargeForAPuzzle) {
  const std::string tail = "\nwhat stood behind";
  disk.files["longer.qzl"] = std::string(sample.size(), 'x') + tail;
  ASSERT_TRUE(SavePuzzle("longer.qzl", windows.editor));
  EXPECT_EQ(disk.files["longer.qzl"], sample + tail);
  disk.files["film.qzl"] = std::string(std::size_t{65} << 20, 'x');
  EXPECT_FALSE(SavePuzzle("film.qzl", windows.editor));
  EXPECT_NE(LastFileError.find("too large"), std::string::npos);
  EXPECT_EQ(disk.files["film.qzl"].front(), 'x');
}

TEST_F(Tiles, OnlyASuccessfulSaveIsToldOnward) {
  std::vector<std::string> saved;
  basTiles::AfterSave = [&](const auto& file) { saved.push_back(file.string()); };
  EXPECT_TRUE(SavePuzzle("one.qzl", windows.editor));
  PuzzleStore full = disk.store();
  full.write = [](const auto&, const auto&, std::size_t) {
    throw std::system_error(ENOSPC, std::generic_category());
  };
  const Replacement fullStore(basTiles::store, full);
  EXPECT_FALSE(SavePuzzle("two.qzl", windows.editor));
  EXPECT_EQ(LastFileError, "No space left on device.\r\ntwo.qzl");
  EXPECT_FALSE(SavePuzzle(".three.qzl", windows.editor));
  EXPECT_NE(LastFileError.find("begins with a dot"), std::string::npos);
  EXPECT_EQ(saved, std::vector<std::string>{"one.qzl"});
}

TEST_F(Tiles, AFailingStoreIsAReasonAndNoCrash) {
  PuzzleStore failing = disk.store();
  failing.exists = [](const auto&) -> bool {
    throw std::system_error(ENAMETOOLONG, std::generic_category());
  };
  {
    const Replacement failingStore(basTiles::store, failing);
    EXPECT_FALSE(LoadPuzzle("x.qzl", false));
  }
  EXPECT_EQ(LastFileError, "File name too long.");
  basTiles::targets = {};
  EXPECT_FALSE(load(sample));
  EXPECT_EQ(LastFileError, "No window is open to load into.");
  basTiles::ReloadPuzzle();
}

TEST_F(Tiles, ReloadingClearsAndLoadsTheCurrentPuzzle) {
  ASSERT_TRUE(load(sample));
  ASSERT_TRUE(board.AddPento(editor.PentoCollection().at(1), 5, 3));  // it lies where it belongs
  basTiles::ReloadPuzzle();
  EXPECT_EQ(board.PentoCollection().Count(), 0u);
  EXPECT_EQ(tray.PentoCollection().Count(), 3u);
  basTiles::CurrentPuzzleFile = "gone.qzl";
  windows.calls.clear();
  basTiles::ReloadPuzzle();
  EXPECT_EQ(windows.calls, (std::vector<std::string>{"tray PaintAll", "board PaintAll"}));
  EXPECT_EQ(tray.PentoCollection().Count(), 0u);
  EXPECT_EQ(LastFileError, "File does not exist.");
}

TEST(StreamStore, CountsOnlyOrdinaryFilesWithoutADotAndReadsWhatItWrote) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::path(::testing::TempDir()) / "stream store";
  fs::remove_all(folder);
  fs::create_directories(folder / "folder.qzl");
  const PuzzleStore store = streamPuzzleStore();
  for (const char* name : {"a.qzl", ".hidden.qzl"}) store.write(folder / name, "bytes", 0);
  EXPECT_TRUE(store.exists(folder / "a.qzl"));
  EXPECT_FALSE(store.exists(folder / ".hidden.qzl"));
  EXPECT_FALSE(store.exists(folder / "folder.qzl"));
  EXPECT_FALSE(store.exists(folder / "none.qzl"));
  EXPECT_EQ(store.read(folder / "a.qzl", 100), "bytes");
  EXPECT_EQ(store.read(folder / "a.qzl", 3), "byt");
  EXPECT_THROW(store.read(folder / "none.qzl", 3), std::runtime_error);
  EXPECT_THROW(store.write(folder / "none" / "a.qzl", "x", 0), std::runtime_error);
  store.write(folder / "a.qzl", "new", 2);
  EXPECT_EQ(store.read(folder / "a.qzl", 100), "newes");
  EXPECT_THROW(store.write(folder / "a.qzl", "x", 3), std::length_error);
  fs::remove_all(folder);
}

}  // namespace
