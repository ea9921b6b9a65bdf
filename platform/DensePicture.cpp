#include "platform/DensePicture.h"

#include <QFile>
#include <QGuiApplication>

namespace {

struct Density {
  double ratio;
  const char* mark;  // in front of the name's ending
};
constexpr Density kDensities[]{{1, ""}, {1.5, "@1.5x"}, {2, "@2x"}};

QString fileOf(QString name, const Density& density) {
  return ":/pictures/" + name.insert(name.lastIndexOf('.'), density.mark);
}

/// Whether a screen needs a denser picture than one of density `have` if there is one of `next`.
bool needsMore(double ratio, double have, double next, Fit fit) {
  return fit == Fit::Tiled ? ratio >= (have + next) / 2 : ratio > have;
}

Density densityFor(const QString& name, double ratio, Fit fit) {
  Density chosen = kDensities[0];
  for (const Density& next : kDensities)
    if (needsMore(ratio, chosen.ratio, next.ratio, fit) && QFile::exists(fileOf(name, next)))
      chosen = next;
  return chosen;
}

}  // namespace

QImage densePicture(const QString& name, double ratio, Fit fit) {
  const Density density = densityFor(name, ratio, fit);
  QImage picture(fileOf(name, density));
  const bool smaller = fit == Fit::Exact && density.ratio != ratio;
  picture.setDevicePixelRatio(1);
  if (smaller)
    picture = picture.scaled(picture.size() * (ratio / density.ratio), Qt::IgnoreAspectRatio,
                             Qt::SmoothTransformation);
  picture.setDevicePixelRatio(smaller ? ratio : density.ratio);
  return picture;
}

QImage densePicture(const QString& name, const QWidget& widget, Fit fit) {
  return densePicture(name, widget.devicePixelRatioF(), fit);
}

QImage densePicture(const QString& name) {
  return densePicture(name, qApp->devicePixelRatio());
}
