#pragma once

#include <QPoint>
#include <QString>

#include "model/PENTO.h"

class PENTOWINDOW;

/// What a board shows, in words, for those who do not see it. Columns and rows count from 1, at the
/// upper left corner.
namespace BoardWords {

/// "P piece".
QString name(const PENTO& piece);
/// As it is turned: "P piece, rows 1 2, 1 2, 1". Each row names the columns of its squares.
QString shape(const PENTO& piece);
/// "column 7, row 3".
QString place(const QPoint& cell);
/// Both, of a piece at its place in a grid.
QString lying(const PENTO& piece);
/// "outside", "empty" or "P piece"; and whether the carried piece would lie there.
QString cell(const PENTOWINDOW& board, const QPoint& cell);
/// Of a row: "outside", or "columns 3 to 7 empty, column 8 P piece", outside left out.
QString row(const PENTOWINDOW& board, int row);
/// What is under the hand, its corner or the carried piece's being in that cell: first what, then
/// where.
QString hand(const PENTOWINDOW& board, const QPoint& cell);
/// Whether the carried piece can be laid with its corner there, and if not, why: "does not fit: 2
/// outside, 1 on the L piece" counts its squares.
QString fits(const PENTOWINDOW& board, const QPoint& corner);
/// Of the carried piece, after a turn or a mirroring, and whether it fits where it now is.
QString changed(const PENTOWINDOW& board, const QString& how);
/// Of a piece that has just been laid down.
QString laid(const PENTOWINDOW& board, const PENTO& piece);
/// Of a board as a whole: the carried piece and where it would lie, else what is to be done.
QString summary(const PENTOWINDOW& board);

}  // namespace BoardWords
