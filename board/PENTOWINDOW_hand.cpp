// What keys and fingers do with the hand, by the handlers of the mouse.
#include <algorithm>

#include "board/BoardWords.h"
#include "board/PENTOWINDOW.h"
#include "drawing/Rounding.h"
#include "platform/Form.h"
#include "platform/Pointer.h"

namespace {

void orient(PENTO& piece, int rotations, int flips) {
  if (piece.FlipCount != flips) piece.Flip();
  while (piece.RotationCount != rotations) piece.Rotate();
}

/// All cells of a grid, the nearest to one of them first.
std::vector<QPoint> cellsAround(const QPoint& middle, const PENTOGRID& grid) {
  std::vector<QPoint> cells;
  for (int x = 0; x < grid.Width(); ++x)
    for (int y = 0; y < grid.Height(); ++y) cells.emplace_back(x, y);
  std::ranges::stable_sort(cells, {}, [&](const QPoint& cell) {
    return QPoint::dotProduct(cell - middle, cell - middle);
  });
  return cells;
}

}  // namespace

bool PENTOWINDOW::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::KeyPress && hand().keyPressed(*static_cast<QKeyEvent*>(event)))
    return true;
  return PointerSurface::eventFilter(object, event);
}

QPoint PENTOWINDOW::CellOfHand() const {
  const int s = std::max(atlas_.tileWidth(), 1);
  const QPointF at = pctFore_->toPicture(hand().over(*pctFore_));
  if (fFloating_) return NearestCellForHand(cellOfFloating(at - grabPoint(s)));
  return NearestCellForHand({nearest(at.x()) / s, nearest(at.y()) / s});
}

QPoint PENTOWINDOW::NearestCellForHand(const QPoint& cell) const {
  const int width = fFloating_ ? FloatingPento_->Width() : 1;
  const int height = fFloating_ ? FloatingPento_->Height() : 1;
  const PENTOGRID& grid = assignedGrid();
  return {std::clamp(cell.x(), 0, std::max(grid.Width() - width, 0)),
          std::clamp(cell.y(), 0, std::max(grid.Height() - height, 0))};
}

void PENTOWINDOW::HandToCell(const QPoint& cell) {
  const int s = atlas_.tileWidth();
  if (fFloating_) grabCentre(s);  // it may have been turned in the other control
  const QPointF grab = fFloating_ ? QPointF(GrabX_, GrabY_) : QPointF(s / 2, s / 2);
  const QPointF pixel = s * QPointF(NearestCellForHand(cell)) + grab;
  hand().put(pctFore_->screenCorner() +
             (pixel + QPointF(kBorderStep, kBorderStep)) / devicePixelRatioF());
}

void PENTOWINDOW::PressAtHand(Button button) {
  const QPointF at = pctFore_->toPicture(hand().over(*pctFore_));
  pctFore_MouseDown(button, at.x(), at.y());
}

void PENTOWINDOW::TurnQuarters(int quarters) {
  for (int i = 0; i < quarters && fFloating_; ++i)
    if (!turn()) return;
}

bool PENTOWINDOW::FloatsAt(const QPointF& global) const {
  if (!drawn_) return false;
  const DirtyRectangle box = floatingBox();
  return QRectF(box.left, box.top, box.right - box.left, box.bottom - box.top)
      .contains(pctFore_->toPicture(pctFore_->mapFromGlobal(global)));
}

QPointF PENTOWINDOW::FloatingMiddle() const {
  const int s = atlas_.tileWidth();
  const QPointF middle(s * FloatingPento_->Width() / 2.0, s * FloatingPento_->Height() / 2.0);
  return Pointer::position() + (middle - QPointF(GrabX_, GrabY_)) / devicePixelRatioF();
}

bool PENTOWINDOW::LayDownAt(const QPoint& cell) {
  if (!grid_->AddPento(FloatingPento_, cell.x(), cell.y())) return false;
  floats(false);
  hand().say([&] { return BoardWords::laid(*this, *FloatingPento_); });
  raise(Drop);
  if (Form::Unloaded(this)) return true;
  showCursor(CursorShape::Default);
  pctFore_Paint();
  return true;
}

void PENTOWINDOW::TakeBack(PENTOWINDOW* tray) {
  const Hand::Origin origin = hand().origin();
  const PentoRef piece = FloatingPento_;
  PENTOWINDOW* home = origin.piece == piece ? origin.control : nullptr;
  if (!home && !tray) return RemoveFloatingPento();
  const int rotations = piece->RotationCount, flips = piece->FlipCount;
  if (home) orient(*piece, origin.rotations, origin.flips);
  if (home && home->LayDownAt(origin.cell)) return;
  const QPoint near = home == tray ? origin.cell : QPoint(0, 0);
  if (tray)
    for (const QPoint& cell : cellsAround(near, *tray->Grid()))
      if (tray->LayDownAt(cell)) return;
  orient(*piece, rotations, flips);  // no room: it stays in the air as it was
  redrawFloating();
}
