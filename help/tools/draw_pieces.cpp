// Draws the picture of the twelve pentominoes for the help page about them.
// Usage: help_pictures OUTPUT.png
#include <QImage>
#include <QPainter>
#include <array>
#include <cstdio>

#include "model/PENTO.h"

namespace {

constexpr int kCell = 16;
constexpr int kColumns = 6;
constexpr int kPlaceWidth = 96;
constexpr int kPlaceHeight = 104;

// Colours that stay apart for colour-blind eyes, too: lightness changes along with the hue.
constexpr std::array<QRgb, PENTO::kTypes> kColours{0xffe8a33d, 0xff3d6fb6, 0xff8fc96b, 0xffc0563f,
                                                   0xff6a5aa8, 0xffe6d25a, 0xff4fb3a9, 0xffd983b0,
                                                   0xff5c5c74, 0xff9cc4ea, 0xffa2744a, 0xff7d9a3c};

void drawPiece(QPainter& painter, int type) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(type));
  const int left = (type % kColumns) * kPlaceWidth + (kPlaceWidth - piece.Width() * kCell) / 2;
  const int top = (type / kColumns) * kPlaceHeight + (kPlaceHeight - piece.Height() * kCell) / 2;
  const QColor colour(kColours[static_cast<std::size_t>(type)]);
  painter.setPen(colour.darker(150));
  painter.setBrush(colour);
  for (int cell = 0; cell < PENTO::kCells; ++cell)
    painter.drawRect(left + piece.GridX(cell) * kCell, top + piece.GridY(cell) * kCell, kCell,
                     kCell);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return std::fputs("Usage: help_pictures OUTPUT.png\n", stderr), 2;
  QImage picture(kColumns * kPlaceWidth, 2 * kPlaceHeight, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  for (int type = 0; type < PENTO::kTypes; ++type) drawPiece(painter, type);
  painter.end();
  return picture.save(argv[1]) ? 0 : 1;
}
