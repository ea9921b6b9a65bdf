#include "board/BoardWords.h"

#include <QStringList>
#include <algorithm>
#include <map>

#include "board/PENTOWINDOW.h"

namespace BoardWords {

namespace {

constexpr const char* kOutside = "outside";
constexpr const char* kEmpty = "empty";

bool carriedOver(const PENTOWINDOW& board) {
  return board.Floating() && QRectF(board.rect()).contains(Hand::of(board).over(board));
}

bool covers(const PENTO& piece, const QPoint& corner, const QPoint& cell) {
  for (int i = 0; i < PENTO::kCells; ++i)
    if (corner + QPoint(piece.GridX(i), piece.GridY(i)) == cell) return true;
  return false;
}

/// What lies in a cell.
QString content(const PENTOGRID& grid, const QPoint& cell) {
  const bool inside = QRect(0, 0, grid.Width(), grid.Height()).contains(cell);
  if (!inside || grid.IsBackground(cell.x(), cell.y())) return kOutside;
  const PentoRef piece = grid.PentoAt(cell.x(), cell.y());
  return piece ? name(*piece) : QString(kEmpty);
}

QString columns(int first, int last) {
  if (first == last) return QString("column %1").arg(first + 1);
  return QString("columns %1 to %2").arg(first + 1).arg(last + 1);
}

/// A tray is not to be filled.
QString emptyCells(const PENTOWINDOW& board) {
  if (basTiles::targets.Tray == &board) return {};
  return QString(", empty cells: %1").arg(board.EmptyCount());
}

/// What the squares of a piece would lie on that is not empty: "2 outside, 1 on the L piece".
QString obstacles(const PENTOGRID& grid, const PENTO& piece, const QPoint& corner) {
  std::map<QString, int> squares;
  for (int i = 0; i < PENTO::kCells; ++i)
    ++squares[content(grid, corner + QPoint(piece.GridX(i), piece.GridY(i)))];
  squares.erase(kEmpty);
  QStringList words;
  for (const auto& [what, count] : squares)
    words << QString(what == kOutside ? "%1 %2" : "%1 on the %2").arg(count).arg(what);
  return words.join(", ");
}

}  // namespace

QString name(const PENTO& piece) {
  return QString("%1 piece").arg(QChar(pentominoLetter(piece.PentoType())));
}

QString shape(const PENTO& piece) {
  QStringList rows;
  for (int y = 0; y < piece.Height(); ++y) {
    QStringList squares;
    for (int x = 0; x < piece.Width(); ++x)
      if (covers(piece, {0, 0}, {x, y})) squares << QString::number(x + 1);
    rows << squares.join(' ');
  }
  return QString("%1, rows %2").arg(name(piece), rows.join(", "));
}

QString place(const QPoint& cell) {
  return QString("column %1, row %2").arg(cell.x() + 1).arg(cell.y() + 1);
}

QString lying(const PENTO& piece) {
  return QString("%1 at %2").arg(shape(piece), place({piece.X(), piece.Y()}));
}

QString cell(const PENTOWINDOW& board, const QPoint& cell) {
  const QString here = content(*board.Grid(), cell);
  if (!carriedOver(board) || !covers(*board.FloatingPento(), board.CellOfHand(), cell)) return here;
  return QString("%1, below the carried %2").arg(here, name(*board.FloatingPento()));
}

QString row(const PENTOWINDOW& board, int row) {
  const PENTOGRID& grid = *board.Grid();
  QStringList runs;
  for (int x = 0; x < grid.Width();) {
    const int first = x;
    const QString here = content(grid, {x, row});
    while (x < grid.Width() && content(grid, {x, row}) == here) ++x;
    if (here != kOutside) runs << QString("%1 %2").arg(columns(first, x - 1), here);
  }
  return runs.isEmpty() ? QString(kOutside) : runs.join(", ");
}

QString hand(const PENTOWINDOW& board, const QPoint& cell) {
  if (board.Floating())
    return QString("%1 %2; %3").arg(name(*board.FloatingPento()), fits(board, cell), place(cell));
  const PentoRef piece = board.Grid()->PentoAt(cell.x(), cell.y());
  return QString("%1; %2").arg(piece ? shape(*piece) : content(*board.Grid(), cell), place(cell));
}

QString fits(const PENTOWINDOW& board, const QPoint& corner) {
  const PENTO& piece = *board.FloatingPento();
  if (board.Grid()->fits(piece, corner.x(), corner.y())) return "fits";
  return "does not fit: " + obstacles(*board.Grid(), piece, corner);
}

QString changed(const PENTOWINDOW& board, const QString& how) {
  const QString now = QString("%1 %2").arg(shape(*board.FloatingPento()), how);
  return carriedOver(board) ? QString("%1; %2").arg(now, fits(board, board.CellOfHand())) : now;
}

QString laid(const PENTOWINDOW& board, const PENTO& piece) {
  const QString where = basTiles::targets.Tray == &board ? " in the tray" : "";
  return QString("%1 laid%2 at %3%4")
      .arg(name(piece), where, place({piece.X(), piece.Y()}), emptyCells(board));
}

QString summary(const PENTOWINDOW& board) {
  const QString lying =
      QString("pieces: %1%2").arg(board.Grid()->PentoCollection().Count()).arg(emptyCells(board));
  if (!board.Floating()) return lying;
  const QString carried = QString("%1; carried: %2").arg(lying, shape(*board.FloatingPento()));
  if (!carriedOver(board)) return carried;
  const QPoint corner = board.CellOfHand();
  return QString("%1; %2 at %3").arg(carried, fits(board, corner), place(corner));
}

}  // namespace BoardWords
