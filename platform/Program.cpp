#include "platform/Program.h"

#include <QCoreApplication>
#include <QTime>

#include "model/PuzzleFormat.h"

namespace fs = std::filesystem;

namespace Program {

namespace {

fs::path folderOfExecutable() {
  const QString file = QCoreApplication::applicationFilePath();
  std::error_code none;
  const fs::path resolved = fs::canonical(fs::path(file.toStdU16String()), none);
  return (none ? fs::path(file.toStdU16String()) : resolved).parent_path();
}

}  // namespace

fs::path HelpFile;
fs::path UserPath;
int ColorDepth = 24;

Seam<std::function<double()>> Timer([] {
  return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
});
Seam<std::function<fs::path()>> installationFolder(folderOfExecutable);

std::string versionText() {
  return PuzzleFormat::kThisVersion.text();
}

fs::path programFilesFolder() {
  return installationFolder().parent_path().parent_path();
}

}  // namespace Program
