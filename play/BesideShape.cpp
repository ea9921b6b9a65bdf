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

int hidden(const QRect& dialog, const QRect& shape) {
  const QRect common = dialog & shape;
  return common.width() * common.height();
}

}  // namespace

QPoint besideShape(const QSize& dialog, const QRect& shape, const QRect& screen) {
  QRect middle(QPoint(), dialog);
  middle.moveCenter(shape.center());
  std::array<QRect, 4> places{middle, middle, middle, middle};
  places[0].moveLeft(shape.right() + kGap);
  places[1].moveRight(shape.left() - kGap);
  places[2].moveTop(shape.bottom() + kGap);
  places[3].moveBottom(shape.top() - kGap);
  for (QRect& place : places) place = keptInside(place, screen);
  return std::min_element(
             places.begin(), places.end(),
             [&](const QRect& a, const QRect& b) { return hidden(a, shape) < hidden(b, shape); })
      ->topLeft();
}
