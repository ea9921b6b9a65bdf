// The floating piece: who shows it, and where it is drawn.
#include <algorithm>
#include <cmath>

#include "board/PENTOWINDOW.h"
#include "drawing/Rounding.h"
#include "platform/Form.h"
#include "platform/Pointer.h"

namespace {

constexpr double kCentredEnough = 2;  // pixels by which the grab point may miss the centre

QPoint rounded(const QPointF& point) {
  return {nearest(point.x()), nearest(point.y())};
}

}  // namespace

void PENTOWINDOW::FloatingPento(const PentoRef& P) {
  if (!P) return;
  FloatingPento_ = P;
  floats(true);
  if (!fKeepGrab_) grabCentre(atlas_.tileWidth());
  fKeepGrab_ = false;
  showCursor(CursorShape::Clear);
  InvalidateFloating();
  pace_.rest(Pace::Rest::No);
  Pointer::moveFollows(*window());  // a hand at rest has moved over no surface yet
}

void PENTOWINDOW::floats(bool piece) {
  fFloating_ = piece;
  hand().holds(this, piece);
  if (piece) return;
  refusal_->clear();
  unsetCursor();
}

/// Where the hand holds the floating piece, in pixels from its corner: in its middle; a finger,
/// which would hide it, from one cell below.
QPointF PENTOWINDOW::grabPoint(int tile) const {
  const int width = FloatingPento_->Width(), height = FloatingPento_->Height();
  return {tile * width / 2.0, hand().touch().lifts() ? tile * (height + 1.0) : tile * height / 2.0};
}

void PENTOWINDOW::grabCentre(int tile) {
  const QPointF grab = grabPoint(tile);
  GrabX_ = static_cast<std::int16_t>(nearest(grab.x()));
  GrabY_ = static_cast<std::int16_t>(nearest(grab.y()));
}

void PENTOWINDOW::ShowFloatingPento() {
  if (!fFloatVisible_) pace_.rest(Pace::Rest::No);
  fFloatVisible_ = true;
}

void PENTOWINDOW::HideFloatingPento() {
  if (!fFloating_) return;
  fFloatVisible_ = false;
  redrawFloating();
}

void PENTOWINDOW::RemoveFloatingPento() {
  floats(false);
  FloatingPento_.reset();
  showCursor(CursorShape::Default);
  pctFore_Paint();
}

Hand& PENTOWINDOW::hand() const {
  if (!hand_ || hand_->parent() != window()) hand_ = &Hand::of(*this);
  return *hand_;
}

/// Where the corner of the floating piece stands as it hangs from the hand, in pixels of this
/// control's surface, wherever the hand is. Over the surface positions count from inside its
/// border, elsewhere from its outer corner.
QPoint PENTOWINDOW::floatingPlace() const {
  const QPointF grab(GrabX_, GrabY_);
  const QPointF inControl = hand().over(*this);
  const bool inside = QRectF(rect()).contains(inControl);
  if (inside && pctFore_->geometry().contains(inControl.toPoint()))
    return rounded(pctFore_->toPicture(hand().over(*pctFore_)) - grab);
  if (inside) return rounded(inControl * devicePixelRatioF() - place_.corner - grab);
  const auto [x, y] = basKelvoWinAPI::GetCursorPos(*this);
  const basKelvoWinAPI::RECT box = basKelvoWinAPI::GetWindowRect(*this);
  return rounded(QPointF(x - box.left, y - box.top) - place_.corner - grab);
}

/// The cell nearest to the floating piece's corner, pixels of the surface; where they are
/// fractions, to where it is drawn.
QPoint PENTOWINDOW::cellOfFloating(const QPointF& corner) const {
  const int s = std::max(atlas_.tileWidth(), 1);
  const QPoint drawn = rounded(corner);
  return {nearest(drawn.x() + s / 2.0) / s, nearest(drawn.y() + s / 2.0) / s};
}

PENTOWINDOW::FloatingPicture PENTOWINDOW::floatingPicture(const QPoint& corner) const {
  const PENTO& piece = *FloatingPento_;
  return {&piece, piece.RotationCount, piece.FlipCount, corner};
}

/// The surface shows the piece elsewhere or otherwise than in the hand, or it should not show it,
/// or should.
bool PENTOWINDOW::showsStalePicture() const {
  if (!showsPiece()) return drawn_.has_value();
  return drawn_ != floatingPicture(floatingPlace());
}

/// A pixel of the surface's picture as a point of the control, logical pixels.
QPointF PENTOWINDOW::surfacePoint(const QPoint& pixel) const {
  return (place_.corner + QPointF(kBorderStep, kBorderStep) + pixel) / devicePixelRatioF();
}

/// What is no part of the surface's picture: over the margin the cursor shows the piece, and the
/// sign of a refused drop moves with it.
void PENTOWINDOW::showOffSurface() {
  if (!drawn_) return refusal_->clear();
  const double ratio = devicePixelRatioF();
  refusal_->follow(*FloatingPento_, surfacePoint(drawn_->corner), atlas_.tileWidth() / ratio);
  if (pctFore_->geometry().contains(hand().over(*this).toPoint())) return;
  setCursor(pieceCursor_.of(*FloatingPento_, atlas_,
                            QPoint(GrabX_ - kBorderStep, GrabY_ - kBorderStep), ratio));
}

/// Keeps the piece centred on the hand after a turn: the cursor is placed on the old grab point,
/// which is where the hand is, and the new one is the piece's centre.
bool PENTOWINDOW::RecenterGrab() {
  const QPointF grab = grabPoint(atlas_.tileWidth());
  if (std::abs(GrabX_ - grab.x()) <= kCentredEnough &&
      std::abs(GrabY_ - grab.y()) <= kCentredEnough)
    return false;
  const auto [x, y] = basKelvoWinAPI::GetCursorPos(*this);
  basKelvoWinAPI::SetCursorPos(x, y, *this);
  grabCentre(atlas_.tileWidth());
  redrawFloating();
  return true;
}
