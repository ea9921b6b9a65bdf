#include "board/CarryHint.h"

namespace {

// In easy mode the middle button does nothing.
constexpr const char* kHint =
    "Right button turns, middle button or any letter or digit key mirrors";
constexpr const char* kEasyHint = "Right button turns, any letter or digit key mirrors";
constexpr const char* kKeysHint = "Page Down turns, any letter or digit key mirrors";
constexpr const char* kTouchHint =
    "Hold it, and tap with a second finger to turn, with two to mirror";
constexpr const char* kEasyTouchHint = "Hold it, and tap with a second finger to turn";

const char* hintFor(const PENTOWINDOW& board) {
  if (Hand::of(board).touch().down()) return board.fEasyMode ? kEasyTouchHint : kTouchHint;
  if (Hand::of(board).marked()) return kKeysHint;
  return board.fEasyMode ? kEasyHint : kHint;
}

}  // namespace

void CarryHint::begin(PENTOWINDOW& board) {
  if (told_) return;
  told_ = true;
  line_ = new MarginLine(hintFor(board), board, "lblCarryHint");
  place(board);
  line_->show();
}

void CarryHint::place(const PENTOWINDOW& board) {
  if (line_) line_->place(board, Qt::BottomEdge);
}

void CarryHint::end() {
  delete line_;
}
