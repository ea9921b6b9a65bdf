#include "play/Hint.h"

#include <QStringList>
#include <chrono>

#include "board/BoardWords.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kSlice = 4ms;  // leaves room for the last step of at most 5 ms
constexpr std::uint64_t kNodes = 500;
constexpr qint64 kPatience = 1000;  // milliseconds
constexpr QColor kFits(0, 128, 0);
constexpr QColor kTakeUp(224, 0, 0);

const char* wordsOf(HintSearch::Finding finding) {
  switch (finding) {
    case HintSearch::Finding::Fits:
      return "This piece fits here.";
    case HintSearch::Finding::TakeUp:
      return "No solution is left from here: take these up.";
    default:
      return "Not known.";
  }
}

/// The one in the air first.
std::vector<PentoRef> loosePieces(const PENTOWINDOW& board, const PENTOWINDOW& tray) {
  std::vector<PentoRef> loose;
  if (board.Floating()) loose.push_back(board.FloatingPento());
  for (const auto& [id, piece] : tray.Grid()->PentoCollection())
    if (!board.Floating() || piece != loose.front()) loose.push_back(piece);
  return loose;
}

}  // namespace

Hint::Hint() {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { slice(); });
}

void Hint::askOrEnd(PENTOWINDOW& board, const PENTOWINDOW& tray) {
  if (search_ || line_) {
    Hand::of(board).say([] { return "The marks are gone."; });
    return end();
  }
  if (board.EmptyCount() == 0) return;
  board_ = &board;
  search_.emplace(*board.Grid(), loosePieces(board, tray));
  asked_.start();
  timer_.start(0);
}

void Hint::end() {
  timer_.stop();
  search_.reset();
  delete marks_;
  delete line_;
}

void Hint::slice() {
  const auto end = std::chrono::steady_clock::now() + kSlice;
  bool known = false;
  do known = search_->goOn(kNodes);
  while (!known && std::chrono::steady_clock::now() < end);
  if (known || asked_.elapsed() >= kPatience) tell(search_->answer());
}

void Hint::tell(const HintSearch::Answer& answer) {
  const bool fits = answer.finding == HintSearch::Finding::Fits;
  if (!answer.pieces.empty())
    marks_ = new PieceMarks(*board_, answer.pieces, fits ? kFits : kTakeUp);
  line_ = new MarginLine(wordsOf(answer.finding), *board_, "lblHint");
  line_->place(*board_, Qt::TopEdge);
  line_->show();
  QStringList words(wordsOf(answer.finding));
  for (const PENTO& piece : answer.pieces) words << BoardWords::lying(piece);
  Hand::of(*board_).say([&] { return words.join(' '); });
  timer_.stop();
  search_.reset();
}
