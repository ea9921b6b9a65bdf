#include "board/PENTOWINDOW.h"
#include "platform/Form.h"
#include "platform/Pointer.h"
#include "platform/Twips.h"

namespace {

constexpr double kRestAfter = 1;  // seconds without a move of the pointer

bool isInside(const basKelvoWinAPI::POINT& p, const basKelvoWinAPI::RECT& box) {
  return p.x >= box.left && p.x <= box.right && p.y >= box.top && p.y <= box.bottom;
}

}  // namespace

void PENTOWINDOW::showEvent(QShowEvent* event) {
  pace_.start();
  PointerSurface::showEvent(event);
}

void PENTOWINDOW::hideEvent(QHideEvent* event) {
  pace_.stop();
  PointerSurface::hideEvent(event);
}

/// Whoever ends a drag over the board that began elsewhere need not move any more.
void PENTOWINDOW::enterEvent(QEnterEvent* event) {
  if (fFloating_) Pointer::moveFollows(*window());
  PointerSurface::enterEvent(event);
}

void PENTOWINDOW::TrackCursor() {
  if (!fFloatVisible_) return;
  const basKelvoWinAPI::POINT p = basKelvoWinAPI::GetCursorPos(*this);
  if (isInside(p, basKelvoWinAPI::GetWindowRect(*this))) {
    if (!fCaptured_) {
      raise(Capture);
      fCaptured_ = true;
      fFloatVisible_ = true;
    }
    if (!Form::Unloaded(this) && showsStalePicture()) followMissedMove();
    return;
  }
  fCaptured_ = false;
  raise(Uncapture);
  if (!Form::Unloaded(this) && (p != LastCursor_ || showsStalePicture())) followOutside(p);
}

/// The piece may have been turned in the other control since this one last held it.
void PENTOWINDOW::followMissedMove() {
  if (showsPiece()) RecenterGrab();
  redrawFloating();
}

/// The piece slides off the control's edge as the cursor leaves, instead of freezing there.
void PENTOWINDOW::followOutside(const basKelvoWinAPI::POINT& p) {
  LastCursor_ = p;
  if (!fFloating_) return;
  RecenterGrab();
  redrawFloating();
}

bool PENTOWINDOW::nothingToSee() const {
  if (!fFloatVisible_) return true;  // whatever shows the piece again also ends the rest
  if (!fFloating_) return Pointer::secondsSinceMove() > kRestAfter;
  const Surface& picture = pctFore_->picture();
  return floatingBox().within(picture.width(), picture.height()).empty();
}

/// The pointer is over the control, which knows and shows it, and events tell when it leaves.
bool PENTOWINDOW::heldByPointer() const {
  return fCaptured_ && Pointer::known() &&
         isInside(basKelvoWinAPI::GetCursorPos(*this), basKelvoWinAPI::GetWindowRect(*this)) &&
         !showsStalePicture();
}

Pace::Rest PENTOWINDOW::mayRest() const {
  if (nothingToSee()) return Pace::Rest::Yes;
  return heldByPointer() ? Pace::Rest::UntilNews : Pace::Rest::No;
}
