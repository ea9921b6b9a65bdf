#include "board/BoardLayout.h"

#include <stdexcept>

#include "drawing/Rounding.h"
#include "platform/DensePicture.h"
#include "platform/Twips.h"

namespace BoardLayout {

namespace {

/// The picture that is tiled behind the cells of a board on the screen that shows a widget.
QImage background(const QWidget& widget) {
  return densePicture("background.png", widget, Fit::Tiled);
}

}  // namespace

PENTOWINDOW* newControl(QWidget* parent, const char* name, const QString& accessibleName) {
  auto* control = new PENTOWINDOW(parent);
  control->setObjectName(name);
  control->setAccessibleName(accessibleName);
  PropertyBag layout;
  layout.WriteProperty("BackTexture", background(*parent), QImage());
  control->ReadProperties(layout);
  return control;
}

QFrame* newCover(QWidget* client) {
  auto* frame = new QFrame(client);
  frame->setObjectName("fraCover");
  frame->setAutoFillBackground(true);
  return frame;
}

void cover(QFrame& frame) {
  frame.setGeometry(frame.parentWidget()->rect());
  frame.raise();
  frame.show();
}

void ringGrid(PENTOGRID& grid, std::int16_t width, std::int16_t height) {
  grid.SetGridSize(width, height);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) {
      const bool ring = x == 0 || y == 0 || x == width - 1 || y == height - 1;
      if (ring)
        grid.SetGridBackground(x, y);
      else
        grid.SetGridEmpty(x, y);
    }
  }
}

namespace {

/// A window that has come to a screen of another density wants the other picture. A board that has
/// been left without one stays so.
void matchBackground(PENTOWINDOW& control) {
  if (control.BackTexture().isNull()) return;
  const QImage wanted = background(control);
  if (control.BackTexture().size() != wanted.size()) control.BackTexture(wanted);
}

}  // namespace

void fitTiles(PENTOWINDOW& control, double width, double height, int columns, int rows) {
  matchBackground(control);
  int tile = nearest(width / columns / Twips::perDevicePixelX(control));
  const auto byHeight = static_cast<float>(height / rows / Twips::perDevicePixelY(control));
  if (byHeight < static_cast<float>(tile)) tile = nearest(byHeight);
  try {
    control.TileSize(static_cast<std::int16_t>(tile));
  } catch (const std::runtime_error&) {
    // The control has laid itself out, with the textures it had or with plain colours.
  }
}

}  // namespace BoardLayout
