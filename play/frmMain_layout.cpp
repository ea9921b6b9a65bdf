#include "board/BoardLayout.h"
#include "model/PuzzleFormat.h"
#include "platform/Program.h"
#include "platform/Twips.h"
#include "play/frmMain.h"

namespace {

constexpr int kMargins = 2;  // tiles beside a grid, one on each side
constexpr int kBoardTiles = PuzzleFormat::kBoardSize + kMargins;
constexpr QSizeF kSmallest(6000, 4800);  // twips of the client area; board tiles of 20 pixels

}  // namespace

void frmMain::Form_Resize() {
  if (Minimized()) return;
  Client()->setMinimumSize(Twips::toPixels(kSmallest, *Client()));
  showCover();
  layOutTray();
  layOutBoard();
  carryHint_.place(*Grid);
  hint_.end();
  if (Program::ColorDepth == Program::kPaletteDepth) dropBackgrounds();
  if (fActivated_) fraCover_->hide();
}

void frmMain::showCover() {
  BoardLayout::cover(*fraCover_);
  fraCover_->repaint();
}

void frmMain::layOutTray() {
  const double width = ClientWidth() / 5, height = ClientHeight();
  Twips::place(*PentoPanel, 0, 0, width, height);
  BoardLayout::fitTiles(*PentoPanel, width, height, kTrayWidth + kMargins, kTrayHeight + kMargins);
}

void frmMain::layOutBoard() {
  const double left = ClientWidth() / 5, width = ClientWidth() - left, height = ClientHeight();
  Grid->Redraw = false;
  Twips::place(*Grid, left, 0, width, height);
  Grid->Redraw = true;
  BoardLayout::fitTiles(*Grid, width, height, kBoardTiles, kBoardTiles);
}

QRegion frmMain::ShapeOnScreen() const {
  const double tile = Grid->TileWidth() / Grid->devicePixelRatioF();
  const QPointF middle = QRectF(Grid->rect()).center();  // also that of the surface
  const QPointF corner =
      Grid->mapToGlobal(middle - QPointF(BoardGrid_.Width(), BoardGrid_.Height()) * (tile / 2));
  QRegion cells;
  for (int y = 0; y < BoardGrid_.Height(); ++y)
    for (int x = 0; x < BoardGrid_.Width(); ++x)
      if (!BoardGrid_.IsBackground(x, y))
        cells += QRectF(corner + QPointF(x, y) * tile, QSizeF(tile, tile)).toAlignedRect();
  return cells;
}

/// On a screen of 256 colours the window's palette holds the colours of the tiles and no others.
void frmMain::dropBackgrounds() {
  Grid->BackTexture(QImage());
  PentoPanel->BackTexture(QImage());
}
