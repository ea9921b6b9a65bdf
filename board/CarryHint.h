#pragma once

#include <QPointer>

#include "board/MarginLine.h"

/// Tells how a piece is turned and mirrored while the player carries one for the first time: a line
/// over the lower margin of a window's board.
class CarryHint {
 public:
  /// A piece is in the air. Only the first one ever is told about.
  void begin(PENTOWINDOW& board);
  void place(const PENTOWINDOW& board);  ///< after a new layout
  void end();                            ///< the piece lies, or is gone

 private:
  bool told_ = false;
  QPointer<MarginLine> line_;
};
