// Several viewers of one file, and strangers at their meeting place.
#include "viewer/SingleViewer.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>
#include <vector>

#include "tests/viewer/HelpFileOnDisk.h"
#include "viewer/RuntimeFolder.h"

namespace {

constexpr int kLong = 60000;
constexpr auto kOnlyMine = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// Viewers as they are installed, with a runtime folder of their own.
class SingleViewerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    QFile::setPermissions(folder.path(), kOnlyMine);
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
  }
  void TearDown() override {
    for (const auto& viewer : viewers) {
      viewer->kill();
      viewer->waitForFinished(kLong);
    }
    qputenv("XDG_RUNTIME_DIR", before);
  }
  QProcess& start(const QString& topic) {
    viewers.push_back(std::make_unique<QProcess>());
    viewers.back()->start(QStringLiteral(QUINZOLITH_TREE "/quinzolith-help"), {help, topic});
    return *viewers.back();
  }
  int ended() const {
    return static_cast<int>(std::count_if(viewers.begin(), viewers.end(), [](const auto& viewer) {
      return viewer->state() == QProcess::NotRunning && viewer->exitCode() == 0;
    }));
  }
  QString place() const { return folder.filePath("place.socket"); }

  const QString help = sourcePath("Quinzolith.chm");
  const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
  QTemporaryDir folder;
  std::vector<std::unique_ptr<QProcess>> viewers;
};

TEST_F(SingleViewerTest, ALaterOneHandsItsTopicOverAndEnds) {
  SingleViewer first(help);
  EXPECT_FALSE(first.handOver(1200)) << "nobody is there";
  first.listen();
  QSignalSpy wanted(&first, &SingleViewer::topicWanted);
  const QProcess& later = start("1300");
  ASSERT_TRUE(QTest::qWaitFor([&] { return later.state() == QProcess::NotRunning; }, kLong));
  EXPECT_EQ(ended(), 1);
  ASSERT_EQ(wanted.count(), 1);
  EXPECT_EQ(wanted.first().first().toInt(), 1300);
}

TEST_F(SingleViewerTest, FiveStartedAtOnceEndAsOne) {
  for (int viewer = 0; viewer < 5; ++viewer) start("1200");
  ASSERT_TRUE(QTest::qWaitFor([&] { return ended() == 4; }, kLong)) << ended();
  SingleViewer asking(help);
  EXPECT_TRUE(asking.handOver(1100)) << "the fifth is there";
}

TEST_F(SingleViewerTest, APlaceLeftByADeadViewerIsTaken) {
  QProcess& dead = start("0");
  ASSERT_TRUE(QTest::qWaitFor([&] { return SingleViewer(help).handOver(1000); }, kLong));
  dead.kill();
  ASSERT_TRUE(dead.waitForFinished(kLong));
  SingleViewer next(help);
  EXPECT_FALSE(next.handOver(1000));
  next.listen();
  QSignalSpy wanted(&next, &SingleViewer::topicWanted);
  start("1100");
  EXPECT_TRUE(QTest::qWaitFor([&] { return wanted.count() == 1; }, kLong));
}

TEST_F(SingleViewerTest, EachDisplayHasItsOwn) {
  SingleViewer here(help, "xcb :1");
  EXPECT_FALSE(here.handOver(1200));
  here.listen();
  SingleViewer there(help, "xcb :2");
  EXPECT_FALSE(there.handOver(1200)) << "a viewer that nobody sees here took the topic";
}

TEST_F(SingleViewerTest, WithoutAFolderOfTheUsersOwnNothingIsHandedOver) {
  const auto expectAlone = [&](const char* why) {
    EXPECT_TRUE(ownRuntimeFolder().isEmpty()) << why;
    SingleViewer first(help);
    EXPECT_FALSE(first.handOver(1200)) << why;
    first.listen();
    EXPECT_FALSE(SingleViewer(help).handOver(1200)) << why;
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot)) << why;
  };
  QFile::setPermissions(folder.path(), kOnlyMine | QFile::ExeOther);
  expectAlone("open to others");
  QFile::setPermissions(folder.path(), kOnlyMine);
  EXPECT_EQ(ownRuntimeFolder(), folder.path());
  const QByteArray relative = QDir().relativeFilePath(folder.path()).toUtf8();
  qputenv("XDG_RUNTIME_DIR", relative);
  expectAlone("not absolute");
  qunsetenv("XDG_RUNTIME_DIR");
  expectAlone("unset");
  qputenv("XDG_RUNTIME_DIR", geteuid() == 0 ? "/nowhere" : "/");
  expectAlone("not the user's");
}

/// Sends something to whoever connects, again and again, until it is hung up on.
class Nuisance : public QLocalServer {
 public:
  Nuisance(const QString& path, const QByteArray& message, int interval) {
    listen(path);
    connect(this, &QLocalServer::newConnection, this, [this, message, interval] {
      QLocalSocket* victim = nextPendingConnection();
      auto* clock = new QTimer(victim);
      connect(clock, &QTimer::timeout, victim, [this, victim, message] {
        if (victim->bytesToWrite() < (1 << 20)) victim->write(message);
        ++sent;
      });
      connect(victim, &QLocalSocket::disconnected, this, [this] { hungUp = true; });
      clock->start(interval);
    });
  }
  bool hungUp = false;
  int sent = 0;
};

/// Asks in a process of its own, since the question waits without an event loop. Its exit code is
/// the answer.
pid_t askApart(const QString& path) {
  const pid_t child = fork();
  if (child == 0) _exit(static_cast<int>(TopicSocket::ask(path, 1200)));
  return child;
}

TopicSocket::Answer answerOf(pid_t child) {
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? static_cast<TopicSocket::Answer>(WEXITSTATUS(status))
                           : TopicSocket::Answer::Taken;
}

// A byte each half second once kept a viewer waiting for good, and an endless line filled memory.
TEST_F(SingleViewerTest, AViewerIsNotHeldUpByWhoeverAnswers) {
  for (const auto& [message, interval] :
       {std::pair{QByteArray("t"), 100}, {QByteArray(1 << 16, 't'), 0}}) {
    Nuisance nuisance(place(), message, interval);
    const pid_t asking = askApart(place());
    ASSERT_TRUE(QTest::qWaitFor([&] { return nuisance.hungUp; }, kLong));
    EXPECT_EQ(answerOf(asking), TopicSocket::Answer::None);
    EXPECT_TRUE(interval == 0 || nuisance.sent < 30) << "the bytes have put the deadline off";
  }
}

TEST_F(SingleViewerTest, AViewerIsNotHeldUpByWhoeverAsks) {
  TopicSocket::Server server;
  ASSERT_TRUE(server.listen(place()));
  QSignalSpy wanted(&server, &TopicSocket::Server::topicWanted);
  const auto isHungUpOn = [&](const QByteArray& message, int interval) {
    QLocalSocket asking;
    QSignalSpy hungUp(&asking, &QLocalSocket::disconnected);
    asking.connectToServer(place());
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &asking, [&] { asking.write(message); });
    clock.start(interval);
    return QTest::qWaitFor([&] { return hungUp.count() > 0; }, kLong);
  };
  const QByteArray tooLong(TopicSocket::kLongestMessage, '1');
  for (const auto& [message, interval] : {std::pair{QByteArray("1"), 100},
                                          {tooLong, 0},
                                          {"-1\n", 0},
                                          {"99999999999\n", 0},
                                          {QByteArray(), 100}})
    EXPECT_TRUE(isHungUpOn(message, interval)) << message.left(20).toStdString();
  EXPECT_EQ(wanted.count(), 0);
  EXPECT_TRUE(isHungUpOn("1200\n", 0));
  EXPECT_TRUE(QTest::qWaitFor([&] { return wanted.count() == 1; }, kLong));
}

/// Listens as another user; 0 when that is not possible. The credentials of a listening socket are
/// those at the time of listen().
pid_t listenAsAnother(const QString& path) {
  constexpr uid_t kNobody = 65534;
  const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  qstrncpy(address.sun_path, path.toLocal8Bit().constData(), sizeof address.sun_path);
  if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return 0;
  int ready[2];
  if (pipe(ready) != 0) return 0;
  const pid_t child = fork();
  if (child == 0) {
    if (setuid(kNobody) != 0 || listen(listener, 1) != 0 || write(ready[1], "", 1) != 1) _exit(1);
    const int client = accept(listener, nullptr, nullptr);
    if (write(client, "taken\n", 6) == 6) pause();
    _exit(1);
  }
  char byte = 0;
  const bool isReady = read(ready[0], &byte, 1) == 1;
  close(ready[0]);
  close(ready[1]);
  close(listener);
  return isReady ? child : 0;
}

TEST_F(SingleViewerTest, AnotherUsersAnswerCountsForNothing) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can listen as another user";
  const pid_t other = listenAsAnother(place());
  ASSERT_GT(other, 0);
  EXPECT_EQ(answerOf(askApart(place())), TopicSocket::Answer::None);
  kill(other, SIGKILL);
  waitpid(other, nullptr, 0);
}

}  // namespace
