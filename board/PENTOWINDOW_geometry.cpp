#include "board/PENTOWINDOW.h"
#include "board/TextureFile.h"
#include "drawing/Rounding.h"
#include "platform/Program.h"
#include "platform/Twips.h"

namespace {

constexpr double kKeyBoxBelow = 1000;  // twips below the visible area

}  // namespace

double PENTOWINDOW::innerWidth() const {
  return width() * Twips::perPixel(*this);
}
double PENTOWINDOW::innerHeight() const {
  return height() * Twips::perPixel(*this);
}

void PENTOWINDOW::TileSize(std::int16_t pixels) {
  if (pixels == 0) return;
  noticeSize();
  const PENTOGRID& grid = assignedGrid();
  centreSurface(pixels * grid.Width() * Twips::perDevicePixelX(*this),
                pixels * grid.Height() * Twips::perDevicePixelY(*this));
  quicken();
  atlas_.load(textureFile(Program::ColorDepth), pixels);  // last: without a picture it throws
}

/// Gives the surface a size in twips and stands it in the middle of the control.
void PENTOWINDOW::centreSurface(double width, double height) {
  const double unitX = Twips::perDevicePixelX(*this), unitY = Twips::perDevicePixelY(*this);
  surfaceLeft_ = (innerWidth() - width) / 2;
  surfaceTop_ = (innerHeight() - height) / 2;
  pctFore_->setPlace({surfaceLeft_ / unitX, surfaceTop_ / unitY},
                     {nearest(width / unitX), nearest(height / unitY)});
}

void PENTOWINDOW::UserControl_Resize() {
  fResizing_ = true;
  const double unit = Twips::perPixel(*this);
  if (!grid_) {
    centreSurface(innerWidth(), innerHeight());
  } else {
    // The height of a caption button is a number of pixels; it was always added as one of twips.
    const double margin = 2.0 * basKelvoWinAPI::GetSystemMetrics(basKelvoWinAPI::SM_CYSIZE);
    const int s = atlas_.tileWidth();
    centreSurface(s * grid_->Width() * Twips::perDevicePixelX(*this) + margin,
                  s * grid_->Height() * Twips::perDevicePixelY(*this) + margin);
  }
  fResizing_ = false;
  txtKey_->move(nearest(surfaceLeft_ / unit), nearest((innerHeight() + kKeyBoxBelow) / unit));
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
