#include "platform/Shell.h"

#include <QDesktopServices>
#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <array>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace Shell {

namespace {

constexpr int kPatienceMilliseconds = 2000;

QUrl urlOf(const std::string& address) {
  const QUrl url(QString::fromStdString(address).trimmed(), QUrl::TolerantMode);
  const std::array<QString, 3> known{"http", "https", "mailto"};
  for (const QString& scheme : known)
    if (url.scheme() == scheme) return url;
  return {};
}

/// The opener outlives this program if it has turned into the browser: it gets a session of its
/// own, no pipe to us, and a parent that is never destroyed, since a process object ends its
/// process.
QProcess* startOpener(const QString& program, const QUrl& url) {
  static auto* const everlasting = new QObject;
  auto* opener = new QProcess(everlasting);
  opener->setStandardInputFile(QProcess::nullDevice());
  opener->setStandardOutputFile(QProcess::nullDevice());
  opener->setStandardErrorFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
  opener->setChildProcessModifier([] { ::setsid(); });
#endif
  opener->start(program, {QString::fromLatin1(url.toEncoded())});
  return opener;
}

/// Qt's own call says yes although xdg-open has failed, so its exit code is read here.
bool succeeds(QProcess* opener) {
  QEventLoop loop;
  QObject::connect(opener, &QProcess::finished, &loop, &QEventLoop::quit);
  QObject::connect(opener, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
  QTimer::singleShot(kPatienceMilliseconds, &loop, &QEventLoop::quit);
  if (opener->state() != QProcess::NotRunning) loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (opener->state() != QProcess::NotRunning) {
    QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
    return true;
  }
  const bool opened = opener->error() == QProcess::UnknownError &&
                      opener->exitStatus() == QProcess::NormalExit && opener->exitCode() == 0;
  opener->deleteLater();
  return opened;
}

}  // namespace

bool open(const std::string& address) {
  const QUrl url = urlOf(address);
  if (!url.isValid() || url.isEmpty()) return false;
  const QString opener = QStandardPaths::findExecutable("xdg-open");
  if (opener.isEmpty()) return QDesktopServices::openUrl(url);
  return succeeds(startOpener(opener, url));
}

}  // namespace Shell
