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
    scene.floating = fFloating_ && fFloatVisible_ && fGridSet_ ? FloatingPento_.get() : nullptr;
    composition_.draw(scene, dirty_, pctFore_->picture());
    pctFore_->present(
        {dirty_.left, dirty_.top, dirty_.right - dirty_.left, dirty_.bottom - dirty_.top});
    if (fFloating_)
      dirty_ = floatingBox();  // the next flush repaints the place that the piece leaves
  } catch (const std::exception&) {
    // A flush that fails leaves on the surface what it showed.
  }
}

DirtyRectangle PENTOWINDOW::floatingBox() const {
  const int s = atlas_.tileWidth();
  const PENTO& piece = *FloatingPento_;
  return {piece.X(), piece.Y(), piece.X() + s * piece.Width(), piece.Y() + s * piece.Height()};
}

void PENTOWINDOW::InvalidateFloating() {
  dirty_.include(floatingBox());
}
