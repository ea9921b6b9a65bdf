#include "tests/machine/Sight.h"

#include <cmath>
#include <cstring>
#include <map>

#include "board/TextureFile.h"
#include "platform/Program.h"

namespace machine::Sight {

namespace {

constexpr int kCentred = 4;  // pixels; beside the surface places count from its outer corner

constexpr std::size_t kMostPainters = 8;

const TextureAtlas& atlas(int tile) {
  static std::map<int, TextureAtlas> atlases;
  const auto [found, isNew] = atlases.try_emplace(tile, 4 * tile, 4 * tile);
  if (isNew) found->second.load(textureFile(Program::ColorDepth), tile);
  return found->second;
}

Composition& painter(const QImage& background) {
  static std::map<qint64, Composition> painters;
  if (painters.size() > kMostPainters) painters.clear();
  const auto [found, isNew] = painters.try_emplace(background.cacheKey());
  if (isNew) found->second.background(background);
  return found->second;
}

int border(const PictureBox& box) {
  return box.BorderStyle() == 0 ? 0 : PictureBox::kSunkenBorder;
}

/// The first row in which two surfaces differ, or -1.
int difference(const Surface& a, const Surface& b) {
  for (int y = 0; y < a.height(); ++y)
    if (std::memcmp(a.row(y), b.row(y),
                    sizeof(Surface::Pixel) * static_cast<std::size_t>(a.width())))
      return y;
  return -1;
}

struct Painting {
  Surface surface;
  Composition::Scene scene;
  Composition* composition;

  explicit Painting(const PENTOWINDOW& control) : composition(&painter(control.BackTexture())) {
    const Surface& shown = Sight::surface(control).picture();
    surface.resize(shown.width(), shown.height());
    scene.grid = control.Grid();
    scene.atlas = &atlas(control.TileWidth());
  }
  void paint(const DirtyRectangle& area) { composition->draw(scene, area, surface); }
  void paintAll() { paint({0, 0, surface.width(), surface.height()}); }
};

/// Tries the corners from the expected one outward.
std::optional<QPoint> cornerNear(Painting& painting, const Surface& shown, const PENTO& piece,
                                 const QPoint& expected) {
  PENTO floating = piece;
  painting.scene.floating = &floating;
  for (int reach = 0; reach <= kCentred; ++reach)
    for (int x = -reach; x <= reach; ++x)
      for (int y = -reach; y <= reach; ++y) {
        if (std::max(std::abs(x), std::abs(y)) != reach) continue;
        const QPoint corner = expected + QPoint(x, y);
        floating.SetPosition(static_cast<std::int16_t>(corner.x()),
                             static_cast<std::int16_t>(corner.y()));
        painting.paintAll();
        if (difference(painting.surface, shown) < 0) return corner;
      }
  return {};
}

}  // namespace

PictureBox& surface(const PENTOWINDOW& control) {
  return *dynamic_cast<PictureBox*>(control.findChild<QWidget*>("pctFore"));
}

QPointF onPicture(const PENTOWINDOW& control, const QPointF& global) {
  const PictureBox& box = surface(control);
  return (global - box.screenCorner()) * box.devicePixelRatioF() -
         QPointF(border(box), border(box));
}

QPointF onDesktop(const PENTOWINDOW& control, const QPointF& picture) {
  const PictureBox& box = surface(control);
  return (picture + QPointF(border(box), border(box))) / box.devicePixelRatioF() +
         box.screenCorner();
}

QPointF cornerFor(const PENTOWINDOW& control, const PENTO& piece, const QPointF& global) {
  const double half = control.TileWidth() / 2.0;
  return onPicture(control, global) - QPointF(piece.Width() * half, piece.Height() * half);
}

Seen look(const PENTOWINDOW& control, const PENTO* piece, const QPointF& pointer) {
  Seen seen;
  const Surface& shown = surface(control).picture();
  Painting painting(control);
  painting.paintAll();
  const int row = difference(painting.surface, shown);
  seen.bare = row < 0;
  if (!piece) {
    if (!seen.bare) seen.wrong = "shows something that is not there, in row " + std::to_string(row);
    return seen;
  }
  if (seen.bare) return seen;
  seen.corner = cornerNear(painting, shown, *piece, cornerFor(control, *piece, pointer).toPoint());
  if (!seen.corner)
    seen.wrong = "shows the carried piece away from the pointer, in row " + std::to_string(row);
  return seen;
}

bool wouldBeSeen(const PENTOWINDOW& control, const PENTO& piece, const QPointF& pointer) {
  const Surface& shown = surface(control).picture();
  const int s = control.TileWidth();
  const QPoint corner = cornerFor(control, piece, pointer).toPoint();
  for (int i = 0; i < PENTO::kCells; ++i) {
    const QRect tile(corner + QPoint(piece.GridX(i), piece.GridY(i)) * s, QSize(s, s));
    const QRect inside = tile & QRect(0, 0, shown.width(), shown.height());
    if (inside.width() > kCentred && inside.height() > kCentred) return true;
  }
  return false;
}

}  // namespace machine::Sight
