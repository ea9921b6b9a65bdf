#include "viewer/SingleViewer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

namespace {

constexpr int kPatienceMilliseconds = 2000;
constexpr int kLongestRequest = 32;
constexpr int kHashLength = 16;

QString socketName(const QString& helpFile) {
  const QFileInfo info(helpFile);
  const QString path = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
  const QByteArray hash =
      QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex().left(kHashLength);
  const QString name = "quinzolith-help-" + QString::fromLatin1(hash);
#ifdef Q_OS_UNIX
  return QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)).filePath(name);
#else
  return name;
#endif
}

}  // namespace

SingleViewer::SingleViewer(const QString& helpFile, QObject* parent)
    : QObject(parent), name_(socketName(helpFile)) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &SingleViewer::answer);
}

bool SingleViewer::handOver(int topic) const {
  QLocalSocket socket;
  socket.connectToServer(name_);
  if (!socket.waitForConnected(kPatienceMilliseconds)) return false;
  socket.write(QByteArray::number(topic) + '\n');
  while (!socket.canReadLine())
    if (!socket.waitForReadyRead(kPatienceMilliseconds)) return false;
  return socket.readLine().trimmed() == "shown";
}

void SingleViewer::listen() {
  if (server_.listen(name_)) return;
  QLocalServer::removeServer(name_);
  server_.listen(name_);
}

void SingleViewer::answer() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
      if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > kLongestRequest) socket->abort();
        return;
      }
      bool isNumber = false;
      const int topic = socket->readLine(kLongestRequest).trimmed().toInt(&isNumber);
      if (!isNumber || topic < 0) return socket->abort();
      emit topicWanted(topic);
      socket->write("shown\n");
      socket->disconnectFromServer();
    });
  }
}
