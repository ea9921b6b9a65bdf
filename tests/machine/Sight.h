#pragma once

#include <QPoint>
#include <optional>
#include <string>

#include "board/PENTOWINDOW.h"

namespace machine {

/// What a person sees of a board control, pixel by pixel: its picture is compared with one that is
/// painted anew, with and without a carried piece.
///
/// Units: device pixels of the control's picture.
namespace Sight {

PictureBox& surface(const PENTOWINDOW& control);

/// A place of the desktop on the control's picture.
QPointF onPicture(const PENTOWINDOW& control, const QPointF& global);
QPointF onDesktop(const PENTOWINDOW& control, const QPointF& picture);

/// Where the centre of the piece would have its corner, pixels not rounded.
QPointF cornerFor(const PENTOWINDOW& control, const PENTO& piece, const QPointF& global);

struct Seen {
  bool bare = false;             ///< the grid and nothing else
  std::optional<QPoint> corner;  ///< the piece, with its corner here, at the pointer
  std::string wrong;             ///< neither
};

/// What is to be seen when the pointer is at a place of the desktop. `piece` may be null.
Seen look(const PENTOWINDOW& control, const PENTO* piece, const QPointF& pointer);

/// Whether a piece at the pointer would cover a part of the picture.
bool wouldBeSeen(const PENTOWINDOW& control, const PENTO& piece, const QPointF& pointer);

}  // namespace Sight

}  // namespace machine
