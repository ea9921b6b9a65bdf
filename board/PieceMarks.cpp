#include "board/PieceMarks.h"

#include <QPainter>
#include <QTransform>

#include "board/PieceOutline.h"

namespace {

constexpr double kPen = 4;  // logical pixels
constexpr QColor kHalo(255, 255, 255);

}  // namespace

PieceMarks::PieceMarks(PENTOWINDOW& board, std::vector<PENTO> pieces, const QColor& colour)
    : QWidget(&board), board_(board), pieces_(std::move(pieces)), colour_(colour) {
  setObjectName("pieceMarks");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(board.rect());
  show();
}

void PieceMarks::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const PENTO& piece : pieces_) {
    const QRectF cell = board_.CellRectangle({piece.X(), piece.Y()});
    const QPolygonF outline = QTransform::fromScale(cell.width(), cell.height())
                                  .map(outlineOf(piece))
                                  .translated(cell.topLeft());
    for (const auto& [colour, width] : {std::pair{kHalo, kPen + 2}, std::pair{colour_, kPen}}) {
      painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
      painter.drawPolygon(outline);
    }
  }
}
