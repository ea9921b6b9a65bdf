#pragma once

#include "edit/frmEdit.h"
#include "files/SafeFile.h"
#include "model/basTiles.h"
#include "platform/HeldKeys.h"
#include "play/PlayWindows.h"
#include "play/frmFinished.h"
#include "play/frmMain.h"
#include "play/frmOpen.h"
#include "play/frmSplash.h"

/// The program's windows, each of which exists once, and what each may call of the others. Make one
/// after the application object; it must live until the event loop has ended.
class Wiring {
 public:
  Wiring();
  Wiring(Wiring&&) = delete;

  /// Starts the program: state, user folder, tunes, splash window.
  void start();

  /// Closes what windows are still open, without a question: changes that are not saved are lost.
  void close();

  /// Puzzle files are saved by the calls that leave the old file or the new one.
  Replacement<PuzzleStore> store{basTiles::store,
                                 {SafeFile::exists, SafeFile::read, SafeFile::writeOver}};
  PlayWindows windows;
  frmSplash splash{windows};
  frmMain main{windows};
  frmOpen open{windows};
  frmFinished finished{windows};
  frmEdit edit;

 private:
  HeldKeys heldKeys_;
};
