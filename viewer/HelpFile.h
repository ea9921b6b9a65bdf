#pragma once

#include <QByteArray>
#include <QHash>
#include <QIODevice>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "viewer/MspackSystem.h"

/// A compiled help file (.chm): a directory of compressed files. Read with libmspack.
///
/// Paths:  begin with "/", use "/", and are found whatever the case of their letters.
/// Limits: the file may come from anywhere. Its directory and its decompressor get at most 64 MiB,
///         each of its files at most 32 MiB, and what lies past 512 MiB of content is not reached.
class HelpFile {
 public:
  /// Null when the device holds no compiled help file, a damaged one, or less of it than its header
  /// says.
  static std::unique_ptr<HelpFile> open(std::unique_ptr<QIODevice> device);
  ~HelpFile();
  HelpFile(HelpFile&&) = delete;

  bool contains(const QString& path) const;
  /// A file's bytes; nothing when there is no such file, or it is damaged or too large.
  std::optional<QByteArray> read(const QString& path) const;
  /// All paths in the order of their content: reading them in this order is fast.
  const QStringList& paths() const { return paths_; }

 private:
  explicit HelpFile(std::unique_ptr<QIODevice> device);
  bool readDirectory();

  std::unique_ptr<QIODevice> device_;
  mutable MspackSystem system_;
  mschm_decompressor* decompressor_ = nullptr;
  mschmd_header* header_ = nullptr;
  QHash<QString, mschmd_file*> files_;  ///< by lower-case path
  QStringList paths_;
};
