#include "platform/Program.h"

#include <QCoreApplication>
#include <QTime>

#include "model/PuzzleFormat.h"

namespace fs = std::filesystem;

namespace Program {

namespace {

struct Found {
  fs::path program;  // for which it was found
  fs::path installation;
};

Found& found() {
  static Found folders;
  return folders;
}

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
Seam<std::function<fs::path()>> programFolder(folderOfExecutable);

std::string versionText() {
  return PuzzleFormat::kThisVersion.text();
}

fs::path installationFolder() {
  const fs::path program = programFolder();
  return found().program == program ? found().installation : program;
}

void setInstallationFolder(const fs::path& folder) {
  found() = {programFolder(), folder};
}

fs::path programFilesFolder() {
  return programFolder().parent_path().parent_path();
}

}  // namespace Program
