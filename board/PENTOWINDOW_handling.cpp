#include <QPixmap>
#include <cmath>

#include "board/PENTOWINDOW.h"
#include "drawing/Rounding.h"
#include "pictures/HotSpots.h"
#include "platform/Dialogs.h"
#include "platform/Form.h"
#include "platform/Twips.h"

namespace {

constexpr const char* kAskRotate =
    "In easy mode, the pentominoes don't need to be rotated or flipped.  Are you sure you want to "
    "rotate?";
constexpr const char* kAskFlip =
    "In easy mode, the pentominoes don't need to be rotated or flipped.  Are you sure you want to "
    "flip?";
constexpr int kBorderStep = 2;        // from the surface's outer corner to its picture
constexpr double kCentredEnough = 2;  // pixels by which the grab point may miss the centre
constexpr int kLongestKeyText = 1000;

std::int16_t nearest16(double value) {
  return static_cast<std::int16_t>(nearest(value));
}

/// Half of so many tiles, rounded: the centre of a piece along one side.
std::int16_t centreOf(int tile, int cells) {
  return nearest16(tile * cells / 2.0);
}

const QCursor& imgHand() {
  static const QCursor cursor(QPixmap(":/pictures/hand.png"), pictures::kHand.x, pictures::kHand.y);
  return cursor;
}

const QCursor& imgClear() {
  static const QCursor cursor(QPixmap(":/pictures/clear.png"));
  return cursor;
}

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
      pctFore_->setPictureCursor(imgHand());
      break;
    case CursorShape::Clear:
      pctFore_->setPictureCursor(imgClear());
      break;
  }
}

void PENTOWINDOW::FloatingPento(const PentoRef& P) {
  if (!P) return;
  FloatingPento_ = P;
  fFloating_ = true;
  if (!fKeepGrab_) {
    GrabX_ = centreOf(atlas_.tileWidth(), P->Width());
    GrabY_ = centreOf(atlas_.tileWidth(), P->Height());
  }
  fKeepGrab_ = false;
  showCursor(CursorShape::Clear);
  InvalidateFloating();
  quicken();
}

void PENTOWINDOW::ShowFloatingPento() {
  if (!fFloatVisible_) quicken();
  fFloatVisible_ = true;
}

void PENTOWINDOW::HideFloatingPento() {
  if (!fFloating_) return;
  fFloatVisible_ = false;
  InvalidateFloating();
  FlushDirty();
}

void PENTOWINDOW::RemoveFloatingPento() {
  fFloating_ = false;
  FloatingPento_.reset();
  showCursor(CursorShape::Default);
  pctFore_Paint();
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
  quicken();
  hover(x, y);
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
  // Its position may still be the other control's, and would throw the cursor off.
  moveFloatingTo(x - GrabX_, y - GrabY_);
  if (RecenterGrab()) moveFloatingTo(x - GrabX_, y - GrabY_);
  InvalidateFloating();
  FlushDirty();
}

void PENTOWINDOW::pointerMove(const QPointF& position) {
  quicken();
  if (!windowIsActive()) {
    HideFloatingPento();
    return;
  }
  fFloatVisible_ = true;
  fCaptured_ = true;
  raise(Capture);
  if (Form::Unloaded(this) || !fFloating_) return;
  const double unit = Twips::perPixel(*this);
  moveFloatingTo((position.x() * unit - surfaceLeft_) / Twips::perDevicePixelX(*this) - GrabX_,
                 (position.y() * unit - surfaceTop_) / Twips::perDevicePixelY(*this) - GrabY_);
  RecenterGrab();
  InvalidateFloating();
  FlushDirty();
}

void PENTOWINDOW::moveFloatingTo(double x, double y) {
  FloatingPento_->SetPosition(nearest16(x), nearest16(y));
}

void PENTOWINDOW::pctFore_MouseDown(Button button, double x, double y) {
  quicken();
  LastButton_ = button;
  if (!grid_) return;
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

void PENTOWINDOW::pickUp(double x, double y) {
  const int s = atlas_.tileWidth();
  const int column = nearest(x) / s, row = nearest(y) / s;
  if (grid_->PentoID(column, row) <= 0) return;
  PentoRef P = grid_->PentoAt(column, row);
  if (Float) Float(P);
  if (Form::Unloaded(this) || !P) return;
  fKeepGrab_ = true;
  FloatingPento(P);
  GrabX_ = centreOf(s, P->Width());
  GrabY_ = centreOf(s, P->Height());
  if (Pickup_) grid_->RemovePento(column, row);
  placeCursor(s * P->Width() / 2.0 + s * P->X(), s * P->Height() / 2.0 + s * P->Y());
}

/// Puts the screen cursor over a point of the surface's picture. The move that the display server
/// then reports draws the piece; where it refuses, the next move of the hand centres the piece
/// instead.
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

void PENTOWINDOW::turn() {
  if (!easyModeAllows(kAskRotate)) return;
  FloatingPento_->Rotate();
  if (RecenterGrab()) return;
  InvalidateFloating();
  FlushDirty();
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
  InvalidateFloating();
  FlushDirty();
}

void PENTOWINDOW::layDown(double x, double y) {
  const int s = atlas_.tileWidth();
  const int column = nearest(x - GrabX_ + s / 2.0) / s;
  const int row = nearest(y - GrabY_ + s / 2.0) / s;
  if (!grid_->AddPento(FloatingPento_, column, row)) {
    raise(DropError);
    return;
  }
  fFloating_ = false;
  raise(Drop);
  if (Form::Unloaded(this)) return;
  showCursor(CursorShape::Default);
  pctFore_Paint();
}

void PENTOWINDOW::pctFore_DblClick() {
  quicken();
  if (!fFloating_) return;
  if (LastButton_ == kRight) {
    if (!easyModeAllows(kAskRotate)) return;
    FloatingPento_->Rotate();
    InvalidateFloating();
    FlushDirty();
  } else if (LastButton_ == kMiddle) {
    mirrorThroughKeyBox();
  }
}

/// Keeps the piece centred on the cursor after a turn: the cursor goes to the old grab point, and
/// the next move puts the new centre under it.
bool PENTOWINDOW::RecenterGrab() {
  const int s = atlas_.tileWidth();
  const PENTO& piece = *FloatingPento_;
  if (std::abs(GrabX_ - s * piece.Width() / 2.0) <= kCentredEnough &&
      std::abs(GrabY_ - s * piece.Height() / 2.0) <= kCentredEnough)
    return false;
  placeCursor(piece.X() + GrabX_, piece.Y() + GrabY_);
  GrabX_ = centreOf(s, piece.Width());
  GrabY_ = centreOf(s, piece.Height());
  InvalidateFloating();
  FlushDirty();
  return true;
}
