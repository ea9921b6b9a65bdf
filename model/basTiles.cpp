#include "model/basTiles.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

#include "model/PuzzleFormat.h"
#include "model/Random.h"

namespace fs = std::filesystem;

namespace basTiles {

std::string LastFileError;
fs::path CurrentPuzzleFile;
fs::path CurrentFileName;
bool fSaved = false;
bool fRandomRotation = true;
bool fRandomFlip = true;
bool fDeveloperVersion = false;

Targets targets;
Seam<PuzzleStore> store(streamPuzzleStore());
std::function<void(const fs::path&)> AfterSave;

namespace {

constexpr int kTriesPerPiece = 100;
constexpr int kRandomTurns = 3;                              // 0 to 2
constexpr int kRandomFlips = 2;                              // 0 or 1
constexpr std::size_t kLongestTail = std::size_t{64} << 20;  // beyond it a file is no puzzle

/// A file that is not let into the grids, with the text for the user.
class RefusedFile : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The pieces found no room in the tray; the load starts over.
class TrayFull {};

int randomBelow(int limit) {
  return static_cast<int>(RandomNumbers::next() * limit);
}

PuzzleTarget& required(PuzzleTarget* target) {
  if (!target || !target->Grid()) throw std::runtime_error("No window is open to load into.");
  return *target;
}

PENTOGRID& boardGrid(bool ToEditor) {
  return *required(ToEditor ? targets.Editor : targets.Board).Grid();
}

std::size_t largestFile(const PENTOGRID& board) {
  return PuzzleFormat::fileSize(board.Width(), board.Height(), PuzzleFormat::kMostRecords);
}

void prepareTargets(bool ToEditor) {
  if (ToEditor) {
    required(targets.Editor).Grid()->Clear();
    targets.Editor->RemoveFloatingPento();
    return;
  }
  required(targets.Tray).Grid()->Clear();
  required(targets.Board).Grid()->Clear();
  targets.Tray->RemoveFloatingPento();
  targets.Board->RemoveFloatingPento();
}

void checkLock(char flag, bool ToEditor) {
  if (flag != PuzzleFormat::kUnlocked && flag != PuzzleFormat::kLocked)
    throw RefusedFile(PuzzleFormat::kInvalid);
  if (flag == PuzzleFormat::kLocked && ToEditor && !fDeveloperVersion)
    throw RefusedFile("You cannot edit the standard Quinzolith puzzles.");
}

void readCells(PuzzleFormat::Reader& reader, PENTOGRID& board, bool ToEditor) {
  for (int x = 0; x < board.Width(); ++x) {
    for (int y = 0; y < board.Height(); ++y) {
      const bool background = reader.flag() != 0;
      if (ToEditor) continue;  // the editor's cells stay as they are
      if (background)
        board.SetGridBackground(x, y);
      else
        board.SetGridEmpty(x, y);
    }
  }
}

/// Lays the piece at a random free place of the tray. After every failure a new place is drawn, the
/// last one included, although nothing tries it: the sequence of random numbers is a promise.
void placeInTray(const PentoRef& piece) {
  PENTOGRID& tray = *required(targets.Tray).Grid();
  for (int tries = 0;; ++tries) {
    const int x = randomBelow(tray.Width());
    const int y = randomBelow(tray.Height());
    if (tries == kTriesPerPiece) throw TrayFull{};
    if (tray.AddPento(piece, x, y)) return;
  }
}

/// Four turns are no turn and two mirrorings none, so a huge number is cut to its remainder.
void orient(PENTO& piece, int rotations, int flips) {
  for (int i = 0; i < rotations % 4; ++i) piece.Rotate();
  for (int i = 0; i < flips % 2; ++i) piece.Flip();
}

void readPiece(PuzzleFormat::Reader& reader, bool ToEditor) {
  const auto piece = std::make_shared<PENTO>();
  const PuzzleFormat::PieceRecord record = reader.piece();
  piece->PentoType(record.type);
  piece->SetPosition(record.x, record.y);
  int rotations = record.rotations, flips = record.flips;
  if (!ToEditor && fRandomRotation) rotations = randomBelow(kRandomTurns);
  if (!ToEditor && fRandomFlip) flips = randomBelow(kRandomFlips);
  orient(*piece, rotations, flips);
  if (ToEditor)
    boardGrid(true).AddPento(piece, piece->X(), piece->Y());  // one that does not fit is left out
  else
    placeInTray(piece);
}

void readPieces(PuzzleFormat::Reader& reader, bool ToEditor) {
  const std::int32_t count = reader.pieceCount();
  for (std::int32_t i = 0; i < count; ++i) readPiece(reader, ToEditor);
}

void loadOnce(const fs::path& FileName, bool ToEditor) {
  const std::string bytes = store->read(FileName, largestFile(boardGrid(ToEditor)));
  PuzzleFormat::Reader reader(bytes);
  if (!reader.signature()) throw RefusedFile("This is not a valid Quinzolith Puzzle file.");
  prepareTargets(ToEditor);
  reader.version();
  checkLock(reader.lockFlag(), ToEditor);
  readCells(reader, boardGrid(ToEditor), ToEditor);
  readPieces(reader, ToEditor);
}

void loadWithRestarts(const fs::path& FileName, bool ToEditor) {
  for (int restarts = 0; restarts <= kMostRestarts; ++restarts) {
    try {
      loadOnce(FileName, ToEditor);
      return;
    } catch (const TrayFull&) {
      if (restarts < kMostRestarts) required(targets.Tray).Grid()->Clear();
    }
  }
  throw std::runtime_error("The pieces of this puzzle do not fit into the tray.");
}

void paint(PuzzleTarget* target) {
  if (target) target->PaintAll();
}

void paintTargets(bool ToEditor) {
  if (ToEditor) {
    paint(targets.Editor);
    return;
  }
  paint(targets.Tray);
  paint(targets.Board);
}

/// A file name in the words of the system, without the call that failed.
std::string reasonOf(const std::exception& error) {
  if (const auto* failure = dynamic_cast<const std::system_error*>(&error))
    return failure->code().message() + ".";
  return error.what();
}

void refuseHiddenName(const fs::path& FileName) {
  const std::string name = FileName.filename().string();
  if (!name.empty() && name.front() == '.')
    throw std::runtime_error(
        "A puzzle whose name begins with a dot could not be opened again. Please choose another "
        "name.");
}

}  // namespace

bool LoadPuzzle(const fs::path& FileName, bool ToEditor) {
  try {
    if (!store->exists(FileName)) {
      LastFileError = "File does not exist.";
      return false;
    }
    LastFileError.clear();
    loadWithRestarts(FileName, ToEditor);
    CurrentPuzzleFile = FileName;
    paintTargets(ToEditor);
    return true;
  } catch (const RefusedFile& refusal) {
    LastFileError = refusal.what();
  } catch (const std::exception& error) {
    LastFileError = reasonOf(error);
    paintTargets(ToEditor);  // what was loaded up to then stays, and is to be seen
  }
  return false;
}

bool SavePuzzle(const fs::path& FileName, const PuzzleTarget& Board) {
  LastFileError.clear();
  try {
    refuseHiddenName(FileName);
    const std::string bytes = PuzzleFormat::write(
        *Board.Grid(), fDeveloperVersion ? PuzzleFormat::kLocked : PuzzleFormat::kUnlocked);
    store->write(FileName, bytes, kLongestTail);
  } catch (const std::exception& error) {
    LastFileError = reasonOf(error) + "\r\n" + FileName.string();
    return false;
  }
  if (AfterSave) AfterSave(FileName);
  return true;
}

void ReloadPuzzle() {
  if (targets.Tray && targets.Tray->Grid()) targets.Tray->Grid()->Clear();
  if (targets.Board && targets.Board->Grid()) targets.Board->Grid()->Clear();
  if (!LoadPuzzle(CurrentPuzzleFile, false)) paintTargets(false);
}

}  // namespace basTiles
