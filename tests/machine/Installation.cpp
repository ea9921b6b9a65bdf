#include "tests/machine/Installation.h"

#include "catalogue/Catalogue.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "play/basStartup.h"
#include "tests/files/FileBytes.h"
#include "tests/model/Pieces.h"

namespace fs = std::filesystem;

namespace machine {

namespace {

struct Lying {
  int type, column, row;
};

/// A cross, which needs no turning; a square with a bite and a bar; and three in a heap.
const std::vector<Lying> kPuzzles[] = {
    {{8, 6, 6}}, {{5, 3, 4}, {1, 5, 8}}, {{8, 2, 2}, {2, 6, 2}, {0, 6, 9}}, {{6, 1, 1}}};

std::string puzzleBytes(const std::vector<Lying>& pieces, char lock) {
  PENTOGRID board = ringedGrid(14, 14);
  for (const Lying& piece : pieces) board.AddPento(makePiece(piece.type), piece.column, piece.row);
  return PuzzleFormat::write(board, lock);
}

}  // namespace

Installation::Installation() {
  folder_ = fs::path(temporary_.path().toStdString()) / "Kelvo Software" / "Quinzolith";
  for (const char* part : {"puzzles", "tiles"}) fs::create_directories(folder_ / part);
  for (const char* tiles : {"tiles.jpg", "tiles.bmp"})
    fs::copy_file(fs::path(QUINZOLITH_TREE) / "tiles" / tiles, folder_ / "tiles" / tiles);
  std::size_t next = 0;
  for (const Catalogue::Entry& entry : Catalogue::entries())
    putBytes(folder_ / "puzzles" / (std::string(entry.key) + ".qzl"),
             puzzleBytes(kPuzzles[next++ % std::size(kPuzzles)], PuzzleFormat::kLocked));
}

void Installation::renew() {
  fs::remove_all(user());
  fs::create_directories(user());
  putBytes(user() / "own.qzl", puzzleBytes(kPuzzles[1], PuzzleFormat::kUnlocked));
  putBytes(user() / "heap.qzl", puzzleBytes(kPuzzles[2], PuzzleFormat::kUnlocked));
  putBytes(user() / "bad.qzl", "no puzzle");
  const fs::path settings = folder_ / "settings.ini";
  fs::remove(settings);
  settings_.reset();
  settings_.emplace(Settings::place, Settings::Place{settings.string()});
  clock_.reset();
  clock_.emplace(Program::Timer, [seconds = 0]() mutable { return ++seconds; });
  Program::ColorDepth = 24;
  basStartup::fSplashDone = true;
  basTiles::fSaved = false;
  basTiles::CurrentPuzzleFile.clear();
  basTiles::CurrentFileName.clear();
}

std::vector<fs::path> Installation::names() const {
  return {user() / "own.qzl", user() / "heap.qzl",
          user() / "bad.qzl", folder_ / "puzzles" / "rocket.qzl",
          user() / "new.qzl", user() / "newer"};
}

std::vector<fs::path> Installation::puzzles() const {
  std::vector<fs::path> found;
  for (const fs::path& part : {user(), folder_ / "puzzles"})
    for (const fs::directory_entry& entry : fs::directory_iterator(part))
      if (entry.path().extension() == ".qzl") found.push_back(entry.path());
  return found;
}

}  // namespace machine
