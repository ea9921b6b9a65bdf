#include "platform/Program.h"

#include <QCoreApplication>
#include <QTime>
#include <bit>
#include <cstdint>
#include <random>

#include "model/PuzzleFormat.h"

namespace fs = std::filesystem;

namespace Program {

namespace {

fs::path& namedFolder() {
  static fs::path folder;
  return folder;
}

std::mt19937_64& generator() {
  static std::mt19937_64 numbers;
  return numbers;
}

}  // namespace

fs::path HelpFile;
fs::path UserPath;
int ColorDepth = 24;

std::function<double()> Timer = [] { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; };
std::function<double()> Random = [] {
  return std::uniform_real_distribution<double>{}(generator());
};

std::string versionText() {
  return PuzzleFormat::kThisVersion.text();
}

fs::path installationFolder() {
  if (!namedFolder().empty()) return namedFolder();
  const QString file = QCoreApplication::applicationFilePath();
  std::error_code none;
  const fs::path resolved = fs::canonical(fs::path(file.toStdU16String()), none);
  return (none ? fs::path(file.toStdU16String()) : resolved).parent_path();
}

void setInstallationFolder(const fs::path& folder) {
  namedFolder() = folder;
}

fs::path programFilesFolder() {
  return installationFolder().parent_path().parent_path();
}

void Randomize(double seed) {
  generator().seed(std::bit_cast<std::uint64_t>(seed));
}

}  // namespace Program
