#include "viewer/RuntimeFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

QString ownRuntimeFolder() {
  const QByteArray path = qgetenv("XDG_RUNTIME_DIR");
  struct stat info {};
  const bool isOwn = path.startsWith('/') && lstat(path.constData(), &info) == 0 &&
                     S_ISDIR(info.st_mode) && info.st_uid == geteuid() &&
                     (info.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  return isOwn ? QFile::decodeName(path) : QString();
}
