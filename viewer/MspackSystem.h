#pragma once

#include <mspack.h>

#include <QByteArray>
#include <QIODevice>
#include <cstddef>

/// What libmspack sees of the machine: one device to read from, one buffer to write to, and memory
/// up to a ceiling that all help files share, so that one of unknown origin can ask for no more.
///
/// Threads: one, the same for all systems.
/// The device must outlive the system, the system the decompressor that was made with it.
class MspackSystem : public mspack_system {
 public:
  static constexpr std::size_t kMemoryCeiling = 64U << 20U;

  explicit MspackSystem(QIODevice& device);

  /// The names under which libmspack opens the device and the buffer.
  static constexpr const char* kDevice = "device";
  static constexpr const char* kOutput = "output";

  /// What has been written since the last call. Writing stops with an error past `ceiling` bytes.
  void startOutput(qint64 ceiling);
  QByteArray takeOutput();

 private:
  struct Handle;
  struct Block;

  QIODevice& device_;
  QByteArray output_;
  qint64 outputCeiling_ = 0;
};
