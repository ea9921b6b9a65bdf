#include "platform/DensePicture.h"

#include <QGuiApplication>

QPixmap densePicture(const QString& file, double ratio) {
  if (ratio <= 1) return QPixmap(file);
  QString dense = file;
  return QPixmap(dense.insert(dense.lastIndexOf('.'), "@2x"));  // the name sets the pixmap's ratio
}

QPixmap densePicture(const QString& file) {
  return densePicture(file, qApp->devicePixelRatio());
}
