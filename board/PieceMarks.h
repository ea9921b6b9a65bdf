#pragma once

#include <QWidget>
#include <vector>

#include "board/PENTOWINDOW.h"

/// Outlines of pieces at places of a board. They lie over the surface, take no mouse and are no
/// part of the board's picture.
class PieceMarks : public QWidget {
 public:
  /// The pieces' positions are cells of the board. Becomes the board's child and shows.
  PieceMarks(PENTOWINDOW& board, std::vector<PENTO> pieces, const QColor& colour);
  const std::vector<PENTO>& pieces() const { return pieces_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PENTOWINDOW& board_;
  const std::vector<PENTO> pieces_;
  const QColor colour_;
};
