#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <optional>

#include "board/MarginLine.h"
#include "board/PENTOWINDOW.h"
#include "board/PieceMarks.h"
#include "play/HintSearch.h"

/// Helps a player who is stuck: asks what the laid pieces still allow, and shows the answer as
/// outlines on the board and a line of words in its margin. The search runs between events, in
/// slices of at most 5 ms, and gives up after a second.
class Hint {
 public:
  Hint();

  /// Asks about the pieces on the board; `tray` holds the others. What is asked for or shown
  /// already ends instead.
  void askOrEnd(PENTOWINDOW& board, const PENTOWINDOW& tray);
  void end();

 private:
  void slice();
  void tell(const HintSearch::Answer& answer);

  QTimer timer_;  ///< runs while there is a question
  QElapsedTimer asked_;
  std::optional<HintSearch> search_;
  QPointer<PENTOWINDOW> board_;
  QPointer<PieceMarks> marks_;
  QPointer<MarginLine> line_;
};
