#include <QPainter>
#include <algorithm>

#include "art/Drawings.h"
#include "art/Outline.h"
#include "art/PuzzleIcons.h"
#include "catalogue/Catalogue.h"
#include "drafts/PuzzleFile.h"
#include "drawing/BoardPicture.h"

namespace pictures {
namespace {

constexpr QColor kWindow(192, 192, 255);

/// A board as the game paints it.
QImage boardOf(const std::vector<std::string>& rows, int tile) {
  solver::Solution pieces;
  for (const Piece& piece : piecesOf(rows)) {
    std::array<solver::Cell, PENTO::kCells> cells;
    std::ranges::transform(piece.cells, cells.begin(), [](const QPoint& cell) {
      return solver::Cell{cell.x(), cell.y()};
    });
    pieces.push_back(solver::placementCovering(cells));
  }
  TextureAtlas textures(0, 0);
  textures.load(atlas(), tile);
  const solver::Shape box = solver::Shape::rectangle(static_cast<int>(rows.front().size()),
                                                     static_cast<int>(rows.size()));
  return boardPicture(puzzle::boardWith(box, pieces), textures);
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
  painter.drawImage(0, 0, boardOf(rows, 67));
  painter.translate(0, 9 * 67 + 20);
  painter.drawImage(0, 0, boardOf(rows, 31));
  painter.translate(14 * 31 + 40, 0);
  painter.drawImage(0, 0, boardOf(rows, 12));
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
    icon.setAlphaChannel(icon.createMaskFromColor(Catalogue::kIconMask, Qt::MaskOutColor));
    painter.drawImage(18 + i % kColumns * kStep, 18 + i / kColumns * kStep, icon);
    ++i;
  }
  return picture;
}

}  // namespace pictures
