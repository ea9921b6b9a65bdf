#include <cmath>

#include "board/BoardWords.h"
#include "board/PENTOWINDOW.h"
#include "drawing/Rounding.h"
#include "platform/Dialogs.h"
#include "platform/Form.h"
#include "platform/Pointer.h"
#include "platform/Twips.h"

namespace {

constexpr const char* kAskRotate =
    "In easy mode, the pentominoes don't need to be rotated or flipped.  Are you sure you want to "
    "rotate?";
constexpr const char* kAskFlip =
    "In easy mode, the pentominoes don't need to be rotated or flipped.  Are you sure you want to "
    "flip?";
constexpr int kLongestKeyText = 1000;

}  // namespace

bool PENTOWINDOW::windowIsActive() const {
  return basKelvoWinAPI::GetActiveWindow() == window();
}

void PENTOWINDOW::showCursor(CursorShape shape) {
  cursor_ = shape;
  switch (shape) {
    case CursorShape::Default:
      pctFore_->setPictureCursor(Qt::ArrowCursor);
      break;
    case CursorShape::Hand:
      pctFore_->setPictureCursor(imgHand_.on(*this));
      break;
    case CursorShape::Clear:
      pctFore_->setPictureCursor(imgClear_.on(*this));
      break;
  }
}

/// The hand over a piece that can be picked up.
void PENTOWINDOW::hover(double x, double y) {
  if (fFloating_ || !grid_) return;
  const int s = atlas_.tileWidth();
  if (s == 0) return;
  const bool overPiece = grid_->PentoID(nearest(x) / s, nearest(y) / s) >= 1;
  if (cursor_ == CursorShape::Default && overPiece) showCursor(CursorShape::Hand);
  if (cursor_ == CursorShape::Hand && !overPiece) showCursor(CursorShape::Default);
}

void PENTOWINDOW::pctFore_MouseMove(double x, double y) {
  hand().pointerMoved();
  hover(x, y);
  followMove();
  if (!Form::Unloaded(this)) pace_.rest(mayRest());
}

void PENTOWINDOW::followMove() {
  if (!windowIsActive()) {
    HideFloatingPento();
    if (fFloating_) showCursor(CursorShape::Default);
    return;
  }
  txtKey_->setFocus();
  if (!fCaptured_) {
    fCaptured_ = true;
    raise(Capture);
    if (Form::Unloaded(this)) return;
  }
  fFloatVisible_ = true;
  if (!fFloating_) return;
  if (cursor_ == CursorShape::Default) showCursor(CursorShape::Clear);
  RecenterGrab();
  redrawFloating();
}

/// Over the margin round the surface.
void PENTOWINDOW::pointerMove(const QPointF&) {
  pace_.rest(Pace::Rest::No);
  hand().pointerMoved();
  if (!windowIsActive()) {
    HideFloatingPento();
    return;
  }
  fFloatVisible_ = true;
  fCaptured_ = true;
  raise(Capture);
  if (Form::Unloaded(this) || !fFloating_) return;
  RecenterGrab();
  redrawFloating();
}

void PENTOWINDOW::pctFore_MouseDown(Button button, double x, double y) {
  pace_.rest(Pace::Rest::No);
  refusal_->clear();
  LastButton_ = button;
  if (!grid_) return;
  followMissedPress();
  if (Form::Unloaded(this)) return;
  if (!fFloating_) {
    pickUp(x, y);
  } else if (button == kRight) {
    turn();
  } else if (button == kMiddle) {
    mirrorThroughKeyBox();
  } else {
    layDown(x, y);
  }
}

/// No move came before the press: a key, or a finger, had led the hand away from the pointer.
void PENTOWINDOW::followMissedPress() {
  if (fFloating_ && (!fFloatVisible_ || showsStalePicture())) followMove();
}

void PENTOWINDOW::pickUp(double x, double y) {
  const int s = atlas_.tileWidth();
  const int column = nearest(x) / s, row = nearest(y) / s;
  if (grid_->PentoID(column, row) <= 0) return;
  PentoRef P = grid_->PentoAt(column, row);
  if (Float) Float(P);
  if (Form::Unloaded(this) || !P) return;
  fKeepGrab_ = true;
  FloatingPento(P);
  grabCentre(atlas_.tileWidth());
  if (Pickup_) grid_->RemovePento(column, row);
  ShowFloatingPento();  // no move need have come before, nor come after
  hand().tookFrom({P, this, {P->X(), P->Y()}, P->RotationCount, P->FlipCount});
  placeCursor(s * P->Width() / 2.0 + s * P->X(), s * P->Height() / 2.0 + s * P->Y());
  hand().say([&] { return BoardWords::shape(*P) + " taken up"; });
}

/// Puts the screen cursor over a point of the surface's picture. The move that follows draws the
/// piece, wherever the cursor then is.
void PENTOWINDOW::placeCursor(double x, double y) {
  const QPointF corner = pctFore_->screenCorner() * devicePixelRatioF();
  basKelvoWinAPI::SetCursorPos(nearest(x + corner.x() + kBorderStep),
                               nearest(y + corner.y() + kBorderStep), *this);
}

bool PENTOWINDOW::easyModeAllows(const char* question) {
  if (!fEasyMode) return true;
  const bool yes = Dialogs::askYesNo(question) == Dialogs::Answer::Yes;
  if (Form::Unloaded(this) || !yes) return false;
  fEasyMode = false;
  return fFloating_;
}

/// False when the player thought better of it.
bool PENTOWINDOW::turn() {
  if (!easyModeAllows(kAskRotate)) return false;
  FloatingPento_->Rotate();
  if (!RecenterGrab()) redrawFloating();
  hand().say([&] { return BoardWords::changed(*this, "turned"); });
  return true;
}

void PENTOWINDOW::mirrorThroughKeyBox() {
  if (fEasyMode) return;
  bool isNumber = false;
  double value = txtKey_->text().toDouble(&isNumber);
  if (!isNumber || !std::isfinite(value)) value = 0;
  txtKey_->setText(QString::number(1 - value, 'g', 15));
}

void PENTOWINDOW::txtKey_Change() {
  if (txtKey_->text().size() > kLongestKeyText) {  // a full field would swallow the next key
    const QSignalBlocker quiet(txtKey_);
    txtKey_->clear();
  }
  if (!fFloating_ || !easyModeAllows(kAskFlip)) return;
  FloatingPento_->Flip();
  redrawFloating();
  hand().say([&] { return BoardWords::changed(*this, "mirrored"); });
}

void PENTOWINDOW::layDown(double x, double y) {
  RecenterGrab();  // it may have been turned in the other control, unseen in an inactive window
  const QPoint cell = cellOfFloating({x - GrabX_, y - GrabY_});
  if (LayDownAt(cell)) return;
  hand().say([&] {
    return QString("%1 %2").arg(BoardWords::name(*FloatingPento_), BoardWords::fits(*this, cell));
  });
  raise(DropError);
  if (!Form::Unloaded(this)) showRefusal();
}

/// Heard where there is sound, it can be seen everywhere.
void PENTOWINDOW::showRefusal() {
  if (!fFloating_ || !drawn_) return;
  const double ratio = devicePixelRatioF();
  refusal_->mark(*FloatingPento_, surfacePoint(drawn_->corner), atlas_.tileWidth() / ratio);
}

void PENTOWINDOW::pctFore_DblClick() {
  pace_.rest(Pace::Rest::No);
  followMissedPress();
  if (Form::Unloaded(this) || !fFloating_) return;
  if (LastButton_ == kRight) {
    turn();
  } else if (LastButton_ == kMiddle) {
    mirrorThroughKeyBox();
  }
}
