#include <QPainter>
#include <algorithm>

#include "art/Drawings.h"
#include "art/Materials.h"
#include "art/Outline.h"
#include "art/PuzzleIcons.h"

namespace pictures {
namespace {

constexpr QColor kWindow(192, 192, 255);

/// A board as the game paints it: unsmoothed textures, white lines between pieces.
void paintBoard(QPainter& painter, const std::vector<std::string>& rows, int tile) {
  const QImage tiles =
      atlas().scaled(4 * tile, 4 * tile, Qt::IgnoreAspectRatio, Qt::FastTransformation);
  const auto texture = [&](const QPoint& cell, int t) {
    painter.drawImage(cell * tile, tiles, QRect(t % 4 * tile, t / 4 * tile, tile, tile));
  };
  Cells all = cellsOf(rows, '.');
  for (const QPoint& cell : all) texture(cell, AtlasLayout::kEmptyCell);
  for (const Piece& piece : piecesOf(rows)) {
    for (const QPoint& cell : piece.cells) texture(cell, piece.type);
    painter.setPen(Qt::white);
    for (const QPoint& cell : piece.cells) {
      const QRect square(cell * tile, QSize(tile, tile));
      const auto other = [&](int dx, int dy) {
        const QPoint next = cell + QPoint(dx, dy);
        return std::find(piece.cells.begin(), piece.cells.end(), next) == piece.cells.end();
      };
      if (other(0, -1)) painter.drawLine(square.topLeft(), square.topRight());
      if (other(-1, 0)) painter.drawLine(square.topLeft(), square.bottomLeft());
      if (other(0, 1)) painter.drawLine(square.bottomLeft(), square.bottomRight());
      if (other(1, 0)) painter.drawLine(square.topRight(), square.bottomRight());
    }
  }
}

}  // namespace

QImage textureSheet() {
  static const std::vector<std::string> rows{"..............", ".UUXIIIIINNNF.", ".UXXXPPLNNFFF.",
                                             ".UUXPPPLLLLF..", "..............", ".TTTWWYYYYZV..",
                                             "..T..WWYZZZV..", "..T...W.ZVVV..", ".............."};
  QImage picture(14 * 67 + 40, 9 * 67 + 9 * 31 + 60, QImage::Format_RGB32);
  picture.fill(kWindow);
  QPainter painter(&picture);
  painter.translate(20, 20);
  paintBoard(painter, rows, 67);
  painter.translate(0, 9 * 67 + 20);
  paintBoard(painter, rows, 31);
  painter.translate(14 * 31 + 40, 0);
  paintBoard(painter, rows, 12);
  painter.translate(14 * 12 + 40, 0);
  painter.drawImage(0, 0, atlas());
  return picture;
}

QImage iconSheet(const std::filesystem::path& puzzles) {
  constexpr int kColumns = 9, kStep = 80;
  QImage picture(kColumns * kStep + 20, 5 * kStep + 20, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  int i = 0;
  for (const IconEntry& entry : iconEntries()) {
    QImage icon = puzzleIcon(entry.icon, puzzles, 2).convertToFormat(QImage::Format_ARGB32);
    icon.setAlphaChannel(icon.createMaskFromColor(qRgb(192, 192, 192), Qt::MaskOutColor));
    painter.drawImage(18 + i % kColumns * kStep, 18 + i / kColumns * kStep, icon);
    ++i;
  }
  return picture;
}

}  // namespace pictures
