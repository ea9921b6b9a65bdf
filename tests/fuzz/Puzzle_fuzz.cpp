// Feeds damaged puzzle files to the game's loader and to the puzzle tool. Grids stay valid, the two
// agree on what a file holds, and what is valid comes back from a save as it was.
#include <sstream>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "tests/fuzz/Claims.h"
#include "tests/model/BareTarget.h"
#include "tests/model/GridCheck.h"
#include "tests/model/MemoryStore.h"
#include "tool/CommandLine.h"

namespace {

std::optional<puzzle::PuzzleFile> readByTool(const std::string& bytes) {
  try {
    return puzzle::readPuzzleFile(bytes);
  } catch (const std::runtime_error&) {
    return {};
  }
}

std::size_t emptyCells(const PENTOGRID& grid) {
  std::size_t cells = 0;
  for (int x = 0; x < grid.Width(); ++x)
    for (int y = 0; y < grid.Height(); ++y) cells += grid.IsEmpty(x, y);
  return cells;
}

/// The game, with a disk that holds one file.
class Game {
 public:
  explicit Game(const std::string& bytes) { disk.files["a.qzl"] = bytes; }

  bool load(bool toEditor, const char* file = "a.qzl") {
    const bool loaded = basTiles::LoadPuzzle(file, toEditor);
    EXPECT_EQ(loaded, basTiles::LastFileError.empty());
    if (toEditor) {
      expectValidGrid(windows.editor.grid);
    } else {
      expectValidGrid(windows.board.grid);
      expectValidGrid(windows.tray.grid);
    }
    return loaded;
  }

  std::string saved() {
    EXPECT_TRUE(basTiles::SavePuzzle("b.qzl", windows.editor)) << basTiles::LastFileError;
    return disk.files["b.qzl"];
  }

  BareWindows windows;
  MemoryStore disk;
  Replacement<PuzzleStore> store{basTiles::store, disk.store()};
};

/// What the editor has made of a file comes back from its save as it was saved.
void expectStableSave(Game& game) {
  const std::string first = game.saved();
  ASSERT_TRUE(game.load(true, "b.qzl")) << basTiles::LastFileError;
  EXPECT_EQ(game.saved(), first);
}

void expectAgreement(const std::optional<puzzle::PuzzleFile>& file, bool edited) {
  EXPECT_EQ(edited, file && file->lockFlag == PuzzleFormat::kUnlocked) << basTiles::LastFileError;
}

void expectValidPuzzle(const puzzle::PuzzleFile& file, const std::string& bytes, Game& game) {
  constexpr std::size_t kLock = 38;  // what stands before it is the version of the writer
  const std::size_t pieces = file.pieces.size();
  if (file.lockFlag == PuzzleFormat::kUnlocked) {
    const std::size_t size = PuzzleFormat::fileSize(14, 14, static_cast<int>(pieces));
    EXPECT_EQ(game.saved().substr(kLock), bytes.substr(kLock, size - kLock));
  }
  ASSERT_TRUE(game.load(false)) << basTiles::LastFileError;
  EXPECT_EQ(emptyCells(game.windows.board.grid), 5 * pieces);
  EXPECT_EQ(game.windows.tray.grid.PentoCollection().Count(), pieces);
  const std::string again = puzzle::makePuzzleFile(file.solution(), file.lockFlag);
  EXPECT_TRUE(puzzle::problemsOf(again).empty());
}

void expectShown(const puzzle::PuzzleFile& file, const std::string& bytes) {
  std::istringstream in(bytes);
  std::ostringstream out, talk;
  puzzle::Environment environment{in, out, talk, {}};
  ASSERT_EQ(puzzle::run({"show", "-"}, environment), puzzle::kDone) << talk.str();
  const puzzle::Drawing drawing = puzzle::readDrawing(out.str());
  EXPECT_EQ(drawing.shape.trimmed().cells(), file.shape().trimmed().cells());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  stopAtBrokenClaims();
  const std::string bytes = textOf(data, size);
  const std::optional<puzzle::PuzzleFile> file = readByTool(bytes);
  Game game(bytes);
  game.load(false);
  const bool edited = game.load(true);
  expectAgreement(file, edited);
  if (edited) expectStableSave(game);
  if (file && puzzle::problemsOf(bytes).empty()) {
    expectValidPuzzle(*file, bytes, game);
    expectShown(*file, bytes);
  }
  return 0;
}
