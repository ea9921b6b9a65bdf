#include "board/MarginLine.h"

#include <QToolTip>

#include "platform/Form.h"

namespace {

constexpr int kMargin = 3;  // logical pixels beside the words and between line and edge

}  // namespace

MarginLine::MarginLine(const QString& words, const PENTOWINDOW& board, const char* name)
    : QLabel(words, board.parentWidget()) {
  setObjectName(name);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFont(Form::ControlFont(board));
  setPalette(QToolTip::palette());
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setAutoFillBackground(true);
  setFrameShape(QFrame::Box);
  setMargin(kMargin);
  setAlignment(Qt::AlignCenter);
}

void MarginLine::place(const PENTOWINDOW& board, Qt::Edge edge) {
  setWordWrap(false);
  const bool wide = sizeHint().width() <= board.width();
  setWordWrap(!wide);
  const int lineWidth = wide ? sizeHint().width() : board.width();
  const int lineHeight = wide ? sizeHint().height() : heightForWidth(lineWidth);
  const QRect room = board.geometry();
  const int top = edge == Qt::TopEdge ? room.top() + kMargin : room.bottom() - kMargin - lineHeight;
  setGeometry(room.center().x() - lineWidth / 2, top, lineWidth, lineHeight);
}
