#include "viewer/KernelLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>
#include <utility>

bool KernelLock::take(const QString& file) {
  if (isHeld()) return true;
  descriptor_ = open(QFile::encodeName(file).constData(),
                     O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
  if (isHeld() && flock(descriptor_, LOCK_EX | LOCK_NB) != 0) drop();
  return isHeld();
}

void KernelLock::drop() {
  if (isHeld()) close(std::exchange(descriptor_, -1));
}
