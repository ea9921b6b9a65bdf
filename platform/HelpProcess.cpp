#include "platform/HelpProcess.h"

#include <QProcess>

#include "platform/Program.h"

namespace HelpProcess {

Seam<std::function<bool(const QString&, const QStringList&)>> Start(
    [](const QString& program, const QStringList& arguments) {
      return QProcess::startDetached(program, arguments);
    });

bool show(const std::filesystem::path& file, int topic) {
  const auto viewer = Program::programFolder() / "quinzolith-help";
  QStringList arguments{QString::fromStdU16String(file.u16string())};
  if (topic != 0) arguments << QString::number(topic);
  return Start(QString::fromStdU16String(viewer.u16string()), arguments);
}

}  // namespace HelpProcess
