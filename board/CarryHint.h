#pragma once

#include <QLabel>
#include <QPointer>

#include "board/PENTOWINDOW.h"

/// Tells how a piece is turned and mirrored while the player carries one for the first time: a line
/// over the lower margin of a window's board. It takes no mouse and is no part of the board's
/// picture, and unlike a tool tip it stays when a button is released or pressed.
class CarryHint {
 public:
  /// A piece is in the air. Only the first one ever is told about.
  void begin(PENTOWINDOW& board);
  void place(const PENTOWINDOW& board);  ///< after a new layout
  void end();                            ///< the piece lies, or is gone

 private:
  bool told_ = false;
  QPointer<QLabel> line_;
};
