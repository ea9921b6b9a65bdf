#include "board/CarryHint.h"

#include <QToolTip>

#include "platform/Form.h"

namespace {

constexpr int kMargin = 3;  // logical pixels beside the words and below the line
// In easy mode the middle button does nothing.
constexpr const char* kHint =
    "Right button turns, middle button or any letter or digit key mirrors";
constexpr const char* kEasyHint = "Right button turns, any letter or digit key mirrors";

}  // namespace

void CarryHint::begin(PENTOWINDOW& board) {
  if (told_) return;
  told_ = true;
  line_ = new QLabel(board.fEasyMode ? kEasyHint : kHint, board.parentWidget());
  line_->setObjectName("lblCarryHint");
  line_->setAttribute(Qt::WA_TransparentForMouseEvents);
  line_->setFont(Form::ControlFont());
  line_->setPalette(QToolTip::palette());
  line_->setBackgroundRole(QPalette::ToolTipBase);
  line_->setForegroundRole(QPalette::ToolTipText);
  line_->setAutoFillBackground(true);
  line_->setFrameShape(QFrame::Box);
  line_->setMargin(kMargin);
  line_->setAlignment(Qt::AlignCenter);
  place(board);
  line_->show();
}

void CarryHint::place(const PENTOWINDOW& board) {
  if (!line_) return;
  line_->setWordWrap(false);
  const bool wide = line_->sizeHint().width() <= board.width();
  line_->setWordWrap(!wide);
  const int width = wide ? line_->sizeHint().width() : board.width();
  const int height = wide ? line_->sizeHint().height() : line_->heightForWidth(width);
  const QRect room = board.geometry();
  line_->setGeometry(room.center().x() - width / 2, room.bottom() - kMargin - height, width,
                     height);
}

void CarryHint::end() {
  delete line_;
}
