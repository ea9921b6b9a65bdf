#include <exception>

#include "platform/Program.h"
#include "platform/Twips.h"
#include "play/frmMain.h"

namespace {

constexpr int kTrayColumns = 9 + 2;  // the grid and one tile of margin on each side
constexpr int kTrayRows = 36 + 2;
constexpr int kBoardTiles = 14 + 2;
constexpr int kPaletteDepth = 8;         // bits per pixel
constexpr QSizeF kSmallest(6000, 4800);  // twips of the client area; board tiles of 20 pixels

/// The largest tile with which so many columns and rows fit, in device pixels; sizes in twips.
std::int16_t tileFor(const PENTOWINDOW& control, double width, double height, int columns,
                     int rows) {
  int tile = Twips::nearest(width / columns / Twips::perDevicePixelX(control));
  const auto byHeight = static_cast<float>(height / rows / Twips::perDevicePixelY(control));
  if (byHeight < static_cast<float>(tile)) tile = Twips::nearest(byHeight);
  return static_cast<std::int16_t>(tile);
}

template <class Step>
void attempt(Step step) {
  try {
    step();
  } catch (const std::exception&) {
    // A step that fails leaves the rest of the layout to the others.
  }
}

}  // namespace

void frmMain::Form_Resize() {
  if (Minimized()) return;
  Client()->setMinimumSize(Twips::toPixels(kSmallest, *Client()));
  showCover();
  attempt([this] { layOutTray(); });
  attempt([this] { layOutBoard(); });
  if (Program::ColorDepth == kPaletteDepth) dropBackgrounds();
  if (fActivated_) fraCover_->hide();
}

void frmMain::showCover() {
  fraCover_->setGeometry(Client()->rect());
  fraCover_->raise();
  fraCover_->show();
  fraCover_->repaint();
}

void frmMain::layOutTray() {
  const double width = ClientWidth() / 5, height = ClientHeight();
  Twips::place(*PentoPanel, 0, 0, width, height);
  PentoPanel->TileSize(tileFor(*PentoPanel, width, height, kTrayColumns, kTrayRows));
}

void frmMain::layOutBoard() {
  const double left = ClientWidth() / 5, width = ClientWidth() - left, height = ClientHeight();
  Grid->Redraw = false;
  Twips::place(*Grid, left, 0, width, height);
  Grid->Redraw = true;
  Grid->TileSize(tileFor(*Grid, width, height, kBoardTiles, kBoardTiles));
}

/// On a screen of 256 colours the window's palette holds the colours of the tiles and no others.
void frmMain::dropBackgrounds() {
  Grid->BackTexture(QImage());
  PentoPanel->BackTexture(QImage());
}
