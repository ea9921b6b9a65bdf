#pragma once

#include <stdexcept>

#include "tests/model/BareTarget.h"
#include "tests/model/MemoryStore.h"

/// Three pieces on an editor's board, turned and mirrored: the puzzle that most tests save.
inline void laySample(PENTOGRID& grid) {
  if (!grid.AddPento(makePiece(0, 3, 1), 2, 3) || !grid.AddPento(makePiece(7, 2), 5, 3) ||
      !grid.AddPento(makePiece(9, 1, 1), 9, 8))
    throw std::logic_error("The sample does not fit.");
}

/// The windows, a store in memory, and the sample: on the editor's board, and its bytes.
class SavedSample {
 protected:
  SavedSample() {
    laySample(windows.editor.grid);
    if (!basTiles::SavePuzzle("sample.qzl", windows.editor))
      throw std::logic_error(basTiles::LastFileError);
    sample = disk.files.at("sample.qzl");
  }

  BareWindows windows;
  MemoryStore disk;
  Replacement<PuzzleStore> store{basTiles::store, disk.store()};
  std::string sample;
};
