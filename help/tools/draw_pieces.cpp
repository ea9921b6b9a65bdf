// Draws the picture of the twelve pentominoes, in the game's textures and with their letters.
// Usage: help_pictures TEXTURES OUTPUT.png
#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>

#include "drawing/TextureAtlas.h"
#include "model/PENTO.h"

namespace {

constexpr int kCell = 18;
constexpr int kColumns = 6;
constexpr int kPlaceWidth = 100;
constexpr int kPlaceHeight = 128;
constexpr int kLetterHeight = 24;

QFont letterFont() {
  QFont font("DejaVu Sans");
  font.setPixelSize(16);
  font.setBold(true);
  if (!QFontInfo(font).exactMatch()) qFatal("The letters need the font DejaVu Sans.");
  return font;
}

QRect squareOf(const PENTO& piece, int cell) {
  return {piece.GridX(cell) * kCell, piece.GridY(cell) * kCell, kCell, kCell};
}

void drawCells(QPainter& painter, const PENTO& piece, const QImage& textures) {
  const int type = piece.PentoType();
  const QRect texture(type % AtlasLayout::kColumns * kCell, type / AtlasLayout::kColumns * kCell,
                      kCell, kCell);
  QRegion covered;
  for (int cell = 0; cell < PENTO::kCells; ++cell) covered += squareOf(piece, cell);
  for (const QPoint& border : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
    for (const QRect& part : covered.translated(border)) painter.fillRect(part, QColor(64, 64, 96));
  for (int cell = 0; cell < PENTO::kCells; ++cell)
    painter.drawImage(squareOf(piece, cell), textures, texture);
}

void drawPiece(QPainter& painter, int type, const QImage& textures) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(type));
  const QRect place(type % kColumns * kPlaceWidth, type / kColumns * kPlaceHeight, kPlaceWidth,
                    kPlaceHeight);
  painter.drawText(place, Qt::AlignHCenter | Qt::AlignBottom, QChar(pentominoLetter(type)));
  painter.save();
  painter.translate(place.x() + (place.width() - piece.Width() * kCell) / 2,
                    place.y() + (place.height() - kLetterHeight - piece.Height() * kCell) / 2);
  drawCells(painter, piece, textures);
  painter.restore();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return std::fputs("Usage: help_pictures TEXTURES OUTPUT.png\n", stderr), 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  TextureAtlas atlas(1, 1);
  atlas.load(argv[1], kCell);
  QImage picture(kColumns * kPlaceWidth, 2 * kPlaceHeight, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setFont(letterFont());
  painter.setPen(QColor(32, 32, 40));
  for (int type = 0; type < PENTO::kTypes; ++type) drawPiece(painter, type, atlas.picture());
  painter.end();
  return picture.save(argv[2]) ? 0 : 1;
}
