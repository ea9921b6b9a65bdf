#include <exception>

#include "board/PENTOWINDOW.h"

void PENTOWINDOW::pctFore_Paint() {
  if (!Redraw || fResizing_) return;
  const QSize outer = pctFore_->outerSize();
  dirty_ = {0, 0, outer.width(), outer.height()};
  FlushDirty();
}

void PENTOWINDOW::FlushDirty() {
  try {
    Composition::Scene scene;
    scene.grid = fGridSet_ ? &assignedGrid() : nullptr;
    scene.atlas = &atlas_;
    DirtyRectangle box;
    if (fFloating_) box = floatingBox();
    if (showsPiece()) {
      FloatingPento_->SetPosition(static_cast<std::int16_t>(box.left),
                                  static_cast<std::int16_t>(box.top));
      scene.floating = FloatingPento_.get();
      dirty_.include(box);  // the hand may have moved since the box was made dirty
    }
    composition_.draw(scene, dirty_, pctFore_->picture());
    pctFore_->present(
        {dirty_.left, dirty_.top, dirty_.right - dirty_.left, dirty_.bottom - dirty_.top});
    drawn_.reset();
    if (scene.floating) drawn_ = floatingPicture({box.left, box.top});
    Pace::news();
    if (fFloating_) dirty_ = box;  // the next flush repaints the place that the piece leaves
    showOffSurface();
  } catch (const std::exception&) {
    // A flush that fails leaves on the surface what it showed.
  }
}

bool PENTOWINDOW::showsPiece() const {
  return fFloating_ && fFloatVisible_ && fGridSet_;
}

DirtyRectangle PENTOWINDOW::floatingBox() const {
  const int s = atlas_.tileWidth();
  const QPoint corner = floatingPlace();
  const PENTO& piece = *FloatingPento_;
  return {corner.x(), corner.y(), corner.x() + s * piece.Width(), corner.y() + s * piece.Height()};
}

void PENTOWINDOW::InvalidateFloating() {
  dirty_.include(floatingBox());
}

void PENTOWINDOW::redrawFloating() {
  InvalidateFloating();
  FlushDirty();
}
