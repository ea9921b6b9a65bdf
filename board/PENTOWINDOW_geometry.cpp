#include "board/PENTOWINDOW.h"
#include "board/TextureFile.h"
#include "drawing/Rounding.h"
#include "platform/Pointer.h"
#include "platform/Program.h"
#include "platform/Twips.h"

namespace {

constexpr double kKeyBoxBelow = 1000;  // twips below the visible area

}  // namespace

void PENTOWINDOW::TileSize(std::int16_t pixels) {
  if (pixels == 0) return;
  noticeSize();
  const PENTOGRID& grid = assignedGrid();
  centreSurface(QSizeF(pixels * grid.Width(), pixels * grid.Height()));
  pace_.rest(Pace::Rest::No);
  if (fFloating_) {
    grabCentre(pixels);  // the old grab point is no point of the piece any more
    Pointer::moveFollows(*window());
  }
  atlas_.load(textureFile(Program::ColorDepth), pixels);  // last: without a picture it throws
}

QRectF PENTOWINDOW::CellRectangle(const QPoint& cell) const {
  const int s = atlas_.tileWidth();
  return {surfacePoint(s * cell), surfacePoint(s * (cell + QPoint(1, 1)))};
}

/// Gives the surface a size in device pixels and stands it in the middle of the control.
void PENTOWINDOW::centreSurface(const QSizeF& surface) {
  place_ = SurfacePlace::centred(QSizeF(size()) * devicePixelRatioF(), surface);
  pctFore_->setPlace(place_.corner, place_.outer);
}

void PENTOWINDOW::UserControl_Resize() {
  fResizing_ = true;
  if (!grid_) {
    centreSurface(QSizeF(size()) * devicePixelRatioF());
  } else {
    // The height of a caption button is a number of pixels, but is added as if it were one of
    // twips: so the margin has its usual width.
    const double margin = 2.0 * basKelvoWinAPI::GetSystemMetrics(basKelvoWinAPI::SM_CYSIZE);
    const int s = atlas_.tileWidth();
    centreSurface(QSizeF(s * grid_->Width() + margin / Twips::perDevicePixelX(*this),
                         s * grid_->Height() + margin / Twips::perDevicePixelY(*this)));
  }
  fResizing_ = false;
  txtKey_->move(nearest(place_.corner.x() / devicePixelRatioF()),
                nearest(height() + kKeyBoxBelow / Twips::perPixel(*this)));
  pctFore_Paint();
}

/// Handles a new size once. The toolkit tells a hidden control of it only when it is shown, which
/// would be after the owner has set the tile and would undo the surface's size.
void PENTOWINDOW::noticeSize() {
  if (size() == handledSize_) return;
  handledSize_ = size();
  UserControl_Resize();
}

void PENTOWINDOW::resizeEvent(QResizeEvent*) {
  noticeSize();
}

void PENTOWINDOW::moveEvent(QMoveEvent*) {
  pctFore_->layOut();  // on a fractional scale it may now stand between two pixels of the window
}
