#include "viewer/TopicSocket.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QTimer>

namespace TopicSocket {

namespace {

bool isSameUser(const QLocalSocket& socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer,
                    &size) == 0 &&
         peer.uid == geteuid();
}

bool isTooLong(const QLocalSocket& socket) {
  return !socket.canReadLine() && socket.bytesAvailable() >= kLongestMessage;
}

int left(const QDeadlineTimer& deadline) {
  return static_cast<int>(deadline.remainingTime());
}

}  // namespace

Answer ask(const QString& path, int topic) {
  const QDeadlineTimer deadline(kDeadlineMilliseconds);
  const auto failure = [&] { return deadline.hasExpired() ? Answer::None : Answer::Nobody; };
  QLocalSocket socket;
  socket.setReadBufferSize(kLongestMessage);
  socket.connectToServer(path);
  if (!socket.waitForConnected(left(deadline))) return failure();
  if (!isSameUser(socket)) return Answer::None;
  socket.write(QByteArray::number(topic) + '\n');
  while (!socket.canReadLine()) {
    if (isTooLong(socket)) return Answer::None;
    if (!socket.waitForReadyRead(left(deadline))) return failure();
  }
  return socket.readLine() == "taken\n" ? Answer::Taken : Answer::None;
}

Server::Server(QObject* parent) : QObject(parent) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &Server::answerAll);
}

bool Server::listen(const QString& path) {
  QLocalServer::removeServer(path);
  return server_.listen(path);
}

void Server::answerAll() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    socket->setReadBufferSize(kLongestMessage);
    QTimer::singleShot(kDeadlineMilliseconds, socket, &QLocalSocket::abort);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] { answer(socket); });
    if (!isSameUser(*socket)) socket->abort();
  }
}

void Server::answer(QLocalSocket* socket) {
  if (isTooLong(*socket)) return socket->abort();
  if (!socket->canReadLine()) return;
  bool isNumber = false;
  const int topic = socket->readLine().trimmed().toInt(&isNumber);
  if (!isNumber || topic < 0) return socket->abort();
  socket->write("taken\n");
  socket->flush();
  socket->disconnectFromServer();
  QMetaObject::invokeMethod(
      this, [this, topic] { emit topicWanted(topic); }, Qt::QueuedConnection);
}

}  // namespace TopicSocket
