// The desktop's opener is a script of the test's own, found first on the PATH.
#include "platform/Shell.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest/QTest>

namespace {

class ShellTest : public ::testing::Test {
 protected:
  void SetUp() override { qputenv("PATH", folder.path().toUtf8() + ":" + path); }
  void TearDown() override { qputenv("PATH", path); }

  /// Puts an xdg-open in place that notes its arguments, one a line, and then ends as told.
  void installOpener(const char* ending) {
    QFile script(folder.filePath("xdg-open"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly | QIODevice::Truncate));
    script.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + log().toUtf8() + "'\n" + ending + "\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  void open(const char* address) {
    EXPECT_TRUE(Shell::open(address, [this] { ++failures; }));
  }
  QString makeFifo() const {
    const QString fifo = folder.filePath("may end");
    EXPECT_EQ(system(("mkfifo '" + fifo + "'").toUtf8().constData()), 0);
    return fifo;
  }
  /// Lets an opener go on that reads the fifo; waits until it does, so it was still running.
  static void letGo(const QString& fifo) {
    QFile end(fifo);
    ASSERT_TRUE(end.open(QIODevice::WriteOnly));
    end.write("\n");
  }
  static void waitFor(const std::function<bool()>& condition) {
    ASSERT_TRUE(QTest::qWaitFor(condition, 30'000));
  }
  QString log() const { return folder.filePath("arguments"); }
  std::string arguments() const {
    QFile file(log());
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "never started";
  }

  const QByteArray path = qgetenv("PATH");
  QTemporaryDir folder;
  int failures = 0;
};

TEST_F(ShellTest, ItReturnsAtOnceAndTellsAFailureLater) {
  const QString fifo = makeFifo();
  for (const char* ending : {"exit 3", "kill -9 $$"}) {
    // It ends when the test says so: waiting for it in open() would never return.
    installOpener(("read line < '" + fifo.toStdString() + "'; " + ending).c_str());
    const int before = failures;
    open("mailto:a@b.example?subject=two words ü&body=100 % <raw>");
    EXPECT_EQ(failures, before);
    letGo(fifo);
    waitFor([&] { return failures > before; });
    EXPECT_EQ(failures, before + 1) << ending;
    EXPECT_EQ(arguments(),
              "mailto:a@b.example?subject=two%20words%20%C3%BC&body=100%20%25%20%3Craw%3E\n");
  }
}

TEST_F(ShellTest, WhatIsNoWebOrMailAddressReachesNoOpener) {
  installOpener("exit 0");
  for (const char* text : {"", "-x", "--help", "/etc/passwd", "file:///etc/passwd", "a@b.example",
                           "javascript:alert(1)", "ms-its:a.chm::/b.htm"})
    EXPECT_FALSE(Shell::open(text, [] {})) << text;
  EXPECT_EQ(arguments(), "never started");
}

TEST_F(ShellTest, AnOpenerThatHasBecomeTheBrowserIsASuccessAndLivesOn) {
  const QString fifo = makeFifo();
  installOpener(
      ("read line < '" + fifo + "'; echo closed by hand > '" + log() + "'").toUtf8().constData());
  open("https://www.b.example");
  letGo(fifo);
  waitFor([this] { return arguments() == "closed by hand\n"; });
  EXPECT_EQ(failures, 0);
}

}  // namespace
