#include "platform/Shell.h"

#include <unistd.h>

#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <array>
#include <chrono>

namespace Shell {

namespace {

constexpr std::chrono::seconds kPatience(30);

QUrl urlOf(const std::string& address) {
  const QUrl url(QString::fromStdString(address).trimmed(), QUrl::TolerantMode);
  const std::array<QString, 3> known{"http", "https", "mailto"};
  for (const QString& scheme : known)
    if (url.scheme() == scheme) return url;
  return {};
}

bool succeeded(const QProcess& opener) {
  return opener.error() == QProcess::UnknownError && opener.exitStatus() == QProcess::NormalExit &&
         opener.exitCode() == 0;
}

/// Qt's own call says yes although xdg-open has failed, so its exit code is read here.
void watch(QProcess* opener, const std::function<void()>& failed) {
  const QDeadlineTimer patience(kPatience);
  const auto ended = [opener, failed, patience] {
    if (!succeeded(*opener) && !patience.hasExpired()) failed();
    opener->deleteLater();
  };
  QObject::connect(opener, &QProcess::finished, opener, ended);
  QObject::connect(opener, &QProcess::errorOccurred, opener, [ended](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) ended();  // the others are followed by finished()
  });
}

/// The opener outlives this program if it has turned into the browser: it gets a session of its
/// own, no pipe to us, and a parent that is never destroyed, since a process object ends its
/// process.
void startOpener(const QString& program, const QUrl& url, const std::function<void()>& failed) {
  static auto* const everlasting = new QObject;
  auto* opener = new QProcess(everlasting);
  opener->setStandardInputFile(QProcess::nullDevice());
  opener->setStandardOutputFile(QProcess::nullDevice());
  opener->setStandardErrorFile(QProcess::nullDevice());
  opener->setChildProcessModifier([] { ::setsid(); });
  watch(opener, failed);
  opener->start(program, {QString::fromLatin1(url.toEncoded())});
}

}  // namespace

bool open(const std::string& address, const std::function<void()>& failed) {
  const QUrl url = urlOf(address);
  if (!url.isValid() || url.isEmpty()) return false;
  const QString opener = QStandardPaths::findExecutable("xdg-open");
  if (opener.isEmpty()) return QDesktopServices::openUrl(url);
  startOpener(opener, url, failed);
  return true;
}

}  // namespace Shell
