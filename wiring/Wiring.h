#pragma once

#include "edit/frmEdit.h"
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
  Wiring(const Wiring&) = delete;
  Wiring& operator=(const Wiring&) = delete;

  /// Starts the program: state, user folder, tunes, splash window.
  void start();

  /// Closes what windows are still open, without a question: changes that are not saved are lost.
  void close();

  PlayWindows windows;
  frmSplash splash{windows};
  frmMain main{windows};
  frmOpen open{windows};
  frmFinished finished{windows};
  frmEdit edit;

 private:
  HeldKeys heldKeys_;
};
