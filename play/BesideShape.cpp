#include "play/BesideShape.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kGap = 8;

QRect keptInside(QRect dialog, const QRect& screen) {
  dialog.moveRight(std::min(dialog.right(), screen.right()));
  dialog.moveBottom(std::min(dialog.bottom(), screen.bottom()));
  dialog.moveLeft(std::max(dialog.left(), screen.left()));
  dialog.moveTop(std::max(dialog.top(), screen.top()));
  return dialog;
}

/// Pixels of the shape.
int hidden(const QRect& dialog, const QRegion& shape) {
  int pixels = 0;
  for (const QRect& part : shape& dialog) pixels += part.width() * part.height();
  return pixels;
}

}  // namespace

QPoint besideShape(const QSize& dialog, const QRegion& shape, const QRect& screen) {
  const QRect bounds = shape.boundingRect();
  QRect middle(QPoint(), dialog);
  middle.moveCenter(bounds.center());
  std::array<QRect, 8> places;
  places.fill(middle);
  places[0].moveLeft(bounds.right() + kGap);
  places[1].moveRight(bounds.left() - kGap);
  places[2].moveTop(bounds.bottom() + kGap);
  places[3].moveBottom(bounds.top() - kGap);
  places[4].moveTopLeft(screen.topLeft());
  places[5].moveTopRight(screen.topRight());
  places[6].moveBottomLeft(screen.bottomLeft());
  places[7].moveBottomRight(screen.bottomRight());
  for (QRect& place : places) place = keptInside(place, screen);
  return std::min_element(
             places.begin(), places.end(),
             [&](const QRect& a, const QRect& b) { return hidden(a, shape) < hidden(b, shape); })
      ->topLeft();
}
