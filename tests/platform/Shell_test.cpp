// The desktop's opener is a script of the test's own, found first on the PATH.
#include "platform/Shell.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

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
  QString log() const { return folder.filePath("arguments"); }
  std::string arguments() const {
    QFile file(log());
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "never started";
  }

  const QByteArray path = qgetenv("PATH");
  QTemporaryDir folder;
};

TEST_F(ShellTest, TheOpenerGetsAnEncodedUrlAndItsExitCodeIsBelieved) {
  installOpener("exit 0");
  EXPECT_TRUE(Shell::open("mailto:a@b.example?subject=two words ü&body=100 % <raw>"));
  EXPECT_EQ(arguments(),
            "mailto:a@b.example?subject=two%20words%20%C3%BC&body=100%20%25%20%3Craw%3E\n");
  EXPECT_TRUE(Shell::open("https://www.b.example/a b"));
  EXPECT_EQ(arguments(), "https://www.b.example/a%20b\n");
  installOpener("exit 3");
  EXPECT_FALSE(Shell::open("https://www.b.example"));
  installOpener("kill -9 $$");
  EXPECT_FALSE(Shell::open("https://www.b.example"));
}

TEST_F(ShellTest, WhatIsNoWebOrMailAddressReachesNoOpener) {
  installOpener("exit 0");
  for (const char* text : {"", "-x", "--help", "/etc/passwd", "file:///etc/passwd", "a@b.example",
                           "javascript:alert(1)", "ms-its:a.chm::/b.htm"})
    EXPECT_FALSE(Shell::open(text)) << text;
  EXPECT_EQ(arguments(), "never started");
}

TEST_F(ShellTest, AnOpenerThatHasBecomeTheBrowserIsASuccessAndLivesOn) {
  const QString fifo = folder.filePath("browser closes");
  ASSERT_EQ(system(("mkfifo '" + fifo + "'").toUtf8().constData()), 0);
  installOpener(
      ("read line < '" + fifo + "'; echo closed by hand > '" + log() + "'").toUtf8().constData());
  EXPECT_TRUE(Shell::open("https://www.b.example"));
  QFile end(fifo);
  ASSERT_TRUE(end.open(QIODevice::WriteOnly));  // waits for the reader: it still runs
  end.write("\n");
  end.close();
  for (int tries = 0; tries < 10000 && arguments() != "closed by hand\n"; ++tries)
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  EXPECT_EQ(arguments(), "closed by hand\n");
}

}  // namespace
