#include "board/BoardLayout.h"
#include "platform/Program.h"
#include "platform/Twips.h"
#include "play/frmMain.h"

namespace {

constexpr int kTrayColumns = 9 + 2;  // the grid and one tile of margin on each side
constexpr int kTrayRows = 36 + 2;
constexpr int kBoardTiles = 14 + 2;
constexpr QSizeF kSmallest(6000, 4800);  // twips of the client area; board tiles of 20 pixels

}  // namespace

void frmMain::Form_Resize() {
  if (Minimized()) return;
  Client()->setMinimumSize(Twips::toPixels(kSmallest, *Client()));
  showCover();
  layOutTray();
  layOutBoard();
  if (Program::ColorDepth == Program::kPaletteDepth) dropBackgrounds();
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
  BoardLayout::fitTiles(*PentoPanel, width, height, kTrayColumns, kTrayRows);
}

void frmMain::layOutBoard() {
  const double left = ClientWidth() / 5, width = ClientWidth() - left, height = ClientHeight();
  Grid->Redraw = false;
  Twips::place(*Grid, left, 0, width, height);
  Grid->Redraw = true;
  BoardLayout::fitTiles(*Grid, width, height, kBoardTiles, kBoardTiles);
}

/// On a screen of 256 colours the window's palette holds the colours of the tiles and no others.
void frmMain::dropBackgrounds() {
  Grid->BackTexture(QImage());
  PentoPanel->BackTexture(QImage());
}
