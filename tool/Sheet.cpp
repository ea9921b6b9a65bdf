#include "tool/Sheet.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "drafts/PuzzleFile.h"
#include "drawing/BoardPicture.h"

namespace puzzle {

namespace {

constexpr QColor kInk(0, 0, 0);
constexpr QColor kFaint(190, 190, 190);

/// Lines between cells, each as one run from end to end, so that none is drawn or cut twice.
/// `isLine(x, y, acrossX)` asks for the line at the left (acrossX) or upper side of a cell.
template <class IsLine>
void paintLines(QPainter& painter, int width, int height, double cell, IsLine isLine) {
  for (const bool upright : {false, true}) {
    const int lines = upright ? width : height, length = upright ? height : width;
    for (int line = 0; line <= lines; ++line)
      for (int from = 0, to = 0; from < length; from = to + 1) {
        const auto here = [&](int at) {
          return at < length && (upright ? isLine(line, at, true) : isLine(at, line, false));
        };
        for (to = from; here(to);) ++to;
        if (to == from) continue;
        painter.drawLine(upright ? QLineF(line * cell, from * cell, line * cell, to * cell)
                                 : QLineF(from * cell, line * cell, to * cell, line * cell));
      }
  }
}

/// The lines of a shape's edge and between its pieces; faint ones between cells without a piece.
void paintOutlines(QPainter& painter, Input puzzle, double cell, double line) {
  trim(puzzle, 1);
  const PENTOGRID grid = boardWith(puzzle.shape, puzzle.solution);
  const auto ids = [&](int x, int y, bool acrossX) {
    return std::pair(grid.PentoID(x + 1, y + 1),
                     acrossX ? grid.PentoID(x, y + 1) : grid.PentoID(x + 1, y));
  };
  const int width = grid.Width() - 2, height = grid.Height() - 2;
  painter.setPen(QPen(kFaint, line / 2, Qt::SolidLine, Qt::FlatCap));
  paintLines(painter, width, height, cell, [&](int x, int y, bool acrossX) {
    return ids(x, y, acrossX) == std::pair(PENTOGRID::kEmpty, PENTOGRID::kEmpty);
  });
  painter.setPen(QPen(kInk, line, Qt::SolidLine, Qt::SquareCap));
  paintLines(painter, width, height, cell, [&](int x, int y, bool acrossX) {
    const auto [here, there] = ids(x, y, acrossX);
    return here != there;
  });
}

bool hasFont() {
  return !QFontDatabase::families().isEmpty();
}

}  // namespace

TextDrawing::TextDrawing()
    : usual_(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})),
      words_{program_.data(), option_.data(), platform_.data(), nullptr} {
  if (!qApp) application_ = std::make_unique<QGuiApplication>(count_, words_.data());
}

TextDrawing::~TextDrawing() {
  qInstallMessageHandler(usual_);
}

QImage texturedPicture(Input puzzle, const TextureAtlas& textures, bool whole) {
  const solver::Shape shown = whole ? puzzle.shape : puzzle.shape.trimmed();
  refuseLargePicture(shown.width(), shown.height(), whole ? 0 : 2, textures.tileWidth());
  if (whole) return boardPicture(boardWith(puzzle.shape, puzzle.solution), textures);
  trim(puzzle, 1);  // the ring gives the edge its outline and is cut off again
  const int tile = textures.tileWidth();
  const QImage image = boardPicture(boardWith(puzzle.shape, puzzle.solution), textures);
  return image.copy(tile, tile, image.width() - 2 * tile, image.height() - 2 * tile);
}

Sheet::Sheet(std::vector<Input> puzzles, const SheetStyle& style, double cell, double line)
    : puzzles_(std::move(puzzles)), style_(style), cell_(cell), line_(line), gap_(cell / 2) {
  for (Input& puzzle : puzzles_) {
    trim(puzzle, 0);
    boxWidth_ = std::max(boxWidth_, puzzle.shape.width() * cell);
    boxHeight_ = std::max(boxHeight_, puzzle.shape.height() * cell);
  }
  style_.captions = style_.captions && hasFont();
  captionHeight_ = style_.captions ? cell : 0;
}

int Sheet::columnsIn(double width) const {
  return std::max(1, static_cast<int>((width - gap_) / (boxWidth_ + gap_)));
}

int Sheet::rowsIn(double height) const {
  return std::max(1, static_cast<int>((height - gap_) / (boxHeight_ + captionHeight_ + gap_)));
}

void Sheet::paint(QPainter& painter, int first, int columns, int rows) const {
  const int end = std::min(count(), first + columns * rows);
  for (int i = first; i < end; ++i) {
    const QPointF corner(width((i - first) % columns), height((i - first) / columns));
    paintPuzzle(painter, puzzles_[static_cast<std::size_t>(i)], corner);
    if (style_.captions) paintCaption(painter, puzzles_[static_cast<std::size_t>(i)], corner);
  }
}

void Sheet::paintPuzzle(QPainter& painter, const Input& puzzle, const QPointF& corner) const {
  const QSizeF size(puzzle.shape.width() * cell_, puzzle.shape.height() * cell_);
  const QPointF at =
      corner + QPointF((boxWidth_ - size.width()) / 2, (boxHeight_ - size.height()) / 2);
  if (!style_.outlines) {
    painter.drawImage(QRectF(QPointF(at.toPoint()), size),
                      texturedPicture(puzzle, *style_.textures));
    return;
  }
  painter.save();
  painter.translate(at);
  paintOutlines(painter, puzzle, cell_, line_);
  painter.restore();
}

/// Text as filled outlines, so that a picture looks alike where the font is missing.
void Sheet::paintCaption(QPainter& painter, const Input& puzzle, const QPointF& corner) const {
  QFont font;
  font.setPixelSize(std::max(1, static_cast<int>(captionHeight_ * 0.6)));
  const QFontMetricsF metrics(font);
  const QString caption = metrics.elidedText(QString::fromStdString(captionOf(puzzle)),
                                             Qt::ElideRight, boxWidth_ + gap_);
  QPainterPath path;
  path.addText(corner.x() + (boxWidth_ - metrics.horizontalAdvance(caption)) / 2,
               corner.y() + boxHeight_ + captionHeight_ * 0.75, font, caption);
  painter.fillPath(path, kInk);
}

}  // namespace puzzle
