#pragma once

#include <QLabel>

#include "board/PENTOWINDOW.h"

/// A line of words over the margin of a window's board. It takes no mouse and is no part of the
/// board's picture, and unlike a tool tip it stays when a button is released or pressed.
class MarginLine : public QLabel {
 public:
  MarginLine(const QString& words, const PENTOWINDOW& board, const char* name);
  /// Lays it over the board's top or bottom edge; again after each new layout.
  void place(const PENTOWINDOW& board, Qt::Edge edge);
};
