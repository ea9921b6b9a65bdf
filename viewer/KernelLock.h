#pragma once

#include <QString>

/// A lock on a file that the kernel drops with the process that holds it, however that ends
/// (flock(2)). The file stays, since removing it would let two processes hold locks of one name.
///
/// Why not QLockFile: its lock is the file's being there, so that of a killed process stays until
/// somebody judges it stale by process number and age.
class KernelLock {
 public:
  KernelLock() = default;
  ~KernelLock() { drop(); }
  KernelLock(KernelLock&&) = delete;

  /// True when the lock is held afterwards; false at once when another holds it, or on an error.
  bool take(const QString& file);
  void drop();
  bool isHeld() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
};
