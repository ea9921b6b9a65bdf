#pragma once

#include <QBuffer>
#include <QFile>
#include <memory>

#include "viewer/HelpBook.h"

/// The help file that ships, and books opened from bytes.
inline QString sourcePath(const QString& name) {
  return QStringLiteral(QUINZOLITH_SOURCE_DIR "/help/") + name;
}

inline QByteArray sourceBytes(const QString& name) {
  QFile file(sourcePath(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline std::unique_ptr<QIODevice> deviceOf(const QByteArray& bytes) {
  auto buffer = std::make_unique<QBuffer>();
  buffer->setData(bytes);
  buffer->open(QIODevice::ReadOnly);
  return buffer;
}

inline std::unique_ptr<HelpBook> shippedBook() {
  return HelpBook::open(deviceOf(sourceBytes("Quinzolith.chm")));
}
