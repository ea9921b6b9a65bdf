#include "board/PENTOWINDOW.h"
#include "platform/Form.h"
#include "platform/Pointer.h"
#include "platform/Twips.h"

namespace {

constexpr int kTick = 1;  // milliseconds
// When a tick would change nothing that anyone can see. The toolkit lets coarse timers meet at
// multiples of 25, so both controls of a window wake the program once; it takes 20 for precise.
constexpr int kRestingTick = 25;
constexpr double kRestAfter = 1;  // seconds without a move of the pointer

}  // namespace

void PENTOWINDOW::showEvent(QShowEvent* event) {
  tmrHideFloat_.start(kTick);
  PointerSurface::showEvent(event);
}

void PENTOWINDOW::hideEvent(QHideEvent* event) {
  tmrHideFloat_.stop();
  PointerSurface::hideEvent(event);
}

void PENTOWINDOW::TrackCursor() {
  if (!fFloatVisible_) return;
  const basKelvoWinAPI::POINT p = basKelvoWinAPI::GetCursorPos(*this);
  const basKelvoWinAPI::RECT box = basKelvoWinAPI::GetWindowRect(*this);
  if (p.x >= box.left && p.x <= box.right && p.y >= box.top && p.y <= box.bottom) {
    if (fCaptured_) return;
    raise(Capture);
    fCaptured_ = true;
    fFloatVisible_ = true;
    return;
  }
  fCaptured_ = false;
  raise(Uncapture);
  if (!Form::Unloaded(this) && p != LastCursor_) followOutside(p, box);
}

/// The piece slides off the control's edge as the cursor leaves, instead of freezing there.
void PENTOWINDOW::followOutside(const basKelvoWinAPI::POINT& p, const basKelvoWinAPI::RECT& box) {
  LastCursor_ = p;
  if (!fFloating_) return;
  moveFloatingTo((p.x - box.left) - surfaceLeft_ / Twips::perDevicePixelX(*this) - GrabX_,
                 (p.y - box.top) - surfaceTop_ / Twips::perDevicePixelY(*this) - GrabY_);
  RecenterGrab();
  InvalidateFloating();
  FlushDirty();
}

bool PENTOWINDOW::nothingToSee() const {
  if (!fFloatVisible_) return true;  // whatever shows the piece again also quickens the timer
  if (!fFloating_) return Pointer::secondsSinceMove() > kRestAfter;
  const Surface& picture = pctFore_->picture();
  return floatingBox().within(picture.width(), picture.height()).empty();
}

void PENTOWINDOW::choosePace() {
  tickEvery(nothingToSee() ? kRestingTick : kTick);
}

void PENTOWINDOW::quicken() {
  tickEvery(kTick);
}

/// A resting timer may be a little early or late, so that those of both controls wake together.
void PENTOWINDOW::tickEvery(int milliseconds) {
  if (tmrHideFloat_.interval() == milliseconds) return;
  tmrHideFloat_.setTimerType(milliseconds == kTick ? Qt::PreciseTimer : Qt::CoarseTimer);
  tmrHideFloat_.setInterval(milliseconds);
}
