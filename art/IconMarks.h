#pragma once

#include <QPoint>
#include <string>
#include <vector>

#include "art/Colour.h"

namespace pictures {

/// What an icon shows beside its shape, so that the shape is taken for what it is called.
struct IconMarks {
  /// A character for each cell. In the shape 'o' is a cell of the second colour, 'c' one of which a
  /// disc round the icon's middle has it, and 'e' an eye; in its holes 'i' is filled with the
  /// second colour, darker, and 'h' bordered by the first colour. All others are plain.
  std::vector<std::string> rows;
  Lab second{};       ///< the second colour
  bool flat = false;  ///< without light and shade

  /// The character of a cell, '#' where none is drawn.
  char at(const QPoint& cell) const;
};

/// The marks of an icon; none for most.
const IconMarks& iconMarks(const std::string& iconKey);

}  // namespace pictures
