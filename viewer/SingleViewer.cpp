#include "viewer/SingleViewer.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QThread>

#include "viewer/RuntimeFolder.h"

namespace {

constexpr int kStartMilliseconds = 5000;  ///< a slow start of another viewer
constexpr int kPauseMilliseconds = 20;
constexpr int kHashLength = 16;

QString placeOf(const QString& helpFile, const QString& display) {
  const QString folder = ownRuntimeFolder();
  if (folder.isEmpty()) return {};
  const QFileInfo info(helpFile);
  const QString path = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
  const QByteArray hash =
      QCryptographicHash::hash((display + '\n' + path).toUtf8(), QCryptographicHash::Sha1).toHex();
  return QDir(folder).filePath("quinzolith-help-" + QString::fromLatin1(hash.left(kHashLength)));
}

}  // namespace

SingleViewer::SingleViewer(const QString& helpFile, const QString& display, QObject* parent)
    : QObject(parent), place_(placeOf(helpFile, display)) {
  connect(&server_, &TopicSocket::Server::topicWanted, this, &SingleViewer::topicWanted);
}

bool SingleViewer::handOver(int topic) {
  using TopicSocket::Answer;
  if (place_.isEmpty()) return false;
  for (const QDeadlineTimer patience(kStartMilliseconds); !patience.hasExpired();
       QThread::msleep(kPauseMilliseconds)) {
    if (lock_.take(place_ + ".lock")) return false;
    const Answer answer = TopicSocket::ask(place_ + ".socket", topic);
    if (answer != Answer::Nobody) return answer == Answer::Taken;
  }
  return false;
}

void SingleViewer::listen() {
  if (lock_.isHeld() && !server_.listen(place_ + ".socket")) lock_.drop();
}

QString SingleViewer::displayName() {
  const QString system = QGuiApplication::platformName();
  QString display =
      qEnvironmentVariable(system.startsWith("wayland") ? "WAYLAND_DISPLAY" : "DISPLAY");
  if (display.endsWith(".0")) display.chop(2);
  return system + ' ' + display;
}
