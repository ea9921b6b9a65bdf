#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "model/PENTOGRID.h"
#include "model/PuzzleStore.h"
#include "seams/Seam.h"

/// What loading and saving need of a board control. A bare grid can stand in for one.
class PuzzleTarget {
 public:
  virtual ~PuzzleTarget() = default;
  virtual PENTOGRID* Grid() const = 0;
  virtual void RemoveFloatingPento() = 0;  ///< drops a piece that is being carried
  virtual void PaintAll() = 0;             ///< redraws everything
};

/// Puzzle files: loading into the play window or the editor, saving from the editor, and the state
/// that these share with the windows.
///
/// A file holds the editor's arrangement, which is the puzzle's solution. Loaded for play, the
/// cells that it covers become the board's empty cells and the pieces lie at random free places of
/// the tray; loaded into the editor, the pieces return to their places.
namespace basTiles {

// --- shared state, living for the whole run ---

/// Why the last load or save failed; empty after a success. UTF-8.
extern std::string LastFileError;
/// The puzzle last loaded, in either mode; ReloadPuzzle loads it again.
extern std::filesystem::path CurrentPuzzleFile;
/// What the editor works on (empty: no file yet). The chooser stores the key of its choice here.
extern std::filesystem::path CurrentFileName;
/// Whether the editor's last attempt to save succeeded.
extern bool fSaved;
/// Pieces get a random number of quarter turns (0 to 2) when they are laid into the tray.
extern bool fRandomRotation;
/// Pieces are mirrored at random when they are laid into the tray.
extern bool fRandomFlip;
/// The developer's build: saved puzzles are locked, locked puzzles may be edited.
extern bool fDeveloperVersion;

// --- wiring, set by Wiring, the windows and the tests ---

/// The windows' boards. A window registers its own when it loads and withdraws them when it
/// unloads.
struct Targets {
  PuzzleTarget* Board = nullptr;   ///< the play window's board
  PuzzleTarget* Tray = nullptr;    ///< the play window's tray
  PuzzleTarget* Editor = nullptr;  ///< the editor's board
};
extern Targets targets;
/// Moves the bytes; streamPuzzleStore() until the program puts a safer one in.
extern Seam<PuzzleStore> store;
/// Runs after every successful save: the editor's "nothing is changed any more" and recent list.
extern std::function<void(const std::filesystem::path&)> AfterSave;

// --- operations ---

/// How often a load starts over because the pieces did not find room in the tray.
inline constexpr int kMostRestarts = 50;

/// Loads a puzzle into the play window, or into the editor when `ToEditor` is set.
/// Errors: false, with the reason in LastFileError. A missing file or one with another signature
///         leaves the grids alone; after any other failure they stay, and show, what was loaded.
bool LoadPuzzle(const std::filesystem::path& FileName, bool ToEditor);

/// Writes the board's arrangement. A longer file keeps its length and its tail.
/// Errors: false, with the reason in LastFileError; what the store promises holds for the old file.
bool SavePuzzle(const std::filesystem::path& FileName, const PuzzleTarget& Board);

/// Clears the play window and loads CurrentPuzzleFile into it again.
void ReloadPuzzle();

}  // namespace basTiles
