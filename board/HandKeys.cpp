#include "board/HandKeys.h"

#include <algorithm>

#include "board/BoardWords.h"
#include "board/Hand.h"
#include "board/PENTOWINDOW.h"
#include "platform/Pointer.h"

namespace {

/// Cells in reading order.
void sortAsRead(std::vector<QPoint>& cells) {
  std::ranges::sort(cells, {}, [](const QPoint& c) { return std::pair(c.y(), c.x()); });
}

/// The first cell of a piece in reading order, from its corner.
QPoint firstCell(const PENTO& piece) {
  std::vector<QPoint> cells;
  for (int i = 0; i < PENTO::kCells; ++i) cells.emplace_back(piece.GridX(i), piece.GridY(i));
  sortAsRead(cells);
  return cells.front();
}

/// The cells by which the pieces of a grid can be taken up.
std::vector<QPoint> piecesOf(const PENTOGRID& grid) {
  std::vector<QPoint> cells;
  for (const auto& [id, piece] : grid.PentoCollection())
    cells.push_back(QPoint(piece->X(), piece->Y()) + firstCell(*piece));
  sortAsRead(cells);
  return cells;
}

/// Where the piece's corner may stand so that its first cell is on an empty cell.
std::vector<QPoint> freeCellsFor(const PENTO& piece, const PENTOGRID& grid) {
  std::vector<QPoint> cells;
  for (int y = 0; y < grid.Height(); ++y)
    for (int x = 0; x < grid.Width(); ++x)
      if (grid.PentoID(x, y) == PENTOGRID::kEmpty) cells.push_back(QPoint(x, y) - firstCell(piece));
  return cells;
}

bool isForButtons(int key) {
  return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Return ||
         key == Qt::Key_Enter;
}

}  // namespace

void HandKeys::serve(PENTOWINDOW& board, PENTOWINDOW* tray) {
  board_ = &board;
  tray_ = tray;
}

std::vector<PENTOWINDOW*> HandKeys::boards() const {
  if (!board_) return {};
  if (!tray_) return {board_};
  return {tray_, board_};
}

PENTOWINDOW* HandKeys::under(const QPointF& global) const {
  for (PENTOWINDOW* control : boards())
    if (QRectF(control->rect()).contains(control->mapFromGlobal(global))) return control;
  return nullptr;
}

PENTOWINDOW* HandKeys::underHand() const {
  return under(Pointer::position());
}

PENTOWINDOW* HandKeys::carrying() const {
  for (PENTOWINDOW* control : boards())
    if (control->Floating()) return control;
  return nullptr;
}

PENTOWINDOW* HandKeys::beside(const PENTOWINDOW& from, int direction) const {
  for (PENTOWINDOW* control : boards())
    if (control != &from && (control->x() - from.x()) * direction > 0) return control;
  return nullptr;
}

bool HandKeys::press(const QKeyEvent& event) {
  if (!board_ || (isForButtons(event.key()) && !tray_ && !underHand())) return false;
  const bool held = event.isAutoRepeat();
  switch (event.key()) {
    case Qt::Key_Left:
      return step({-1, 0}), true;
    case Qt::Key_Right:
      return step({1, 0}), true;
    case Qt::Key_Up:
      return step({0, -1}), true;
    case Qt::Key_Down:
      return step({0, 1}), true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (!held) next(event.key() == Qt::Key_Tab ? 1 : -1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (PENTOWINDOW* control = held ? nullptr : underHand()) control->PressAtHand();
      return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp: {
      PENTOWINDOW* control = underHand() && underHand()->Floating() ? underHand() : carrying();
      if (control && !held) control->TurnQuarters(event.key() == Qt::Key_PageDown ? 1 : 3);
      return true;
    }
    case Qt::Key_Escape:
      if (PENTOWINDOW* control = held ? nullptr : carrying()) control->TakeBack(tray_);
      return true;
    default:
      return false;
  }
}

void HandKeys::goTo(PENTOWINDOW& control, const QPoint& cell, const QString& first) {
  control.HandToCell(cell);
  Hand::of(control).say(
      [&] { return first + BoardWords::hand(control, control.NearestCellForHand(cell)); });
}

void HandKeys::toBoard() {
  if (underHand() != board_)
    goTo(*board_, QPoint(board_->Grid()->Width() / 2, board_->Grid()->Height() / 2));
  else
    goTo(*board_, board_->CellOfHand());
  board_->setFocus();
}

/// At the side edges the hand goes on to the board there, in the row at the same height.
void HandKeys::step(const QPoint& by) {
  PENTOWINDOW* from = underHand();
  if (!from) return goTo(tray_ ? *tray_ : *board_, QPoint(1, 1));
  const QPoint wanted = from->CellOfHand() + by;
  const QPoint reached = from->NearestCellForHand(wanted);
  PENTOWINDOW* other = reached.x() == wanted.x() ? nullptr : beside(*from, by.x());
  if (!other) return goTo(*from, reached);
  const double height = (from->CellOfHand().y() + 0.5) / from->Grid()->Height();
  goTo(*other, other->NearestCellForHand({by.x() > 0 ? 0 : other->Grid()->Width(),
                                          static_cast<int>(height * other->Grid()->Height())}));
}

void HandKeys::next(int direction) {
  const PENTOWINDOW* holder = carrying();
  if (holder)
    return nextOf(*board_, freeCellsFor(*holder->FloatingPento(), *board_->Grid()), direction);
  PENTOWINDOW& source = tray_ ? *tray_ : *board_;
  nextOf(source, piecesOf(*source.Grid()), direction);
}

/// The cell of the list behind the one on which the hand is, or the first one.
void HandKeys::nextOf(PENTOWINDOW& control, const std::vector<QPoint>& cells, int direction) {
  if (cells.empty()) return;
  const auto now =
      underHand() == &control ? std::ranges::find(cells, control.CellOfHand()) : cells.end();
  const auto count = static_cast<std::ptrdiff_t>(cells.size());
  const std::ptrdiff_t index = now == cells.end()
                                   ? (direction > 0 ? 0 : count - 1)
                                   : (now - cells.begin() + direction + count) % count;
  const QString which = carrying() ? QString() : QString("%1 of %2: ").arg(index + 1).arg(count);
  goTo(control, cells[static_cast<std::size_t>(index)], which);
}
