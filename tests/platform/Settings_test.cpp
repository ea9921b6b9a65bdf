#include "platform/Settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>

#include "platform/Dialogs.h"
#include "tests/files/FileBytes.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kApplication = "Kelvo Software\\Quinzolith";
/// As a program on another machine, which shares the home, leaves its lock when the machine dies.
constexpr const char* kForeignLock = "1234\nquinzolith\nanother-machine\n\n\n";

std::string soundOr(const std::string& otherwise) {
  return Settings::get(kApplication, "Sound", "Status", otherwise);
}

class SettingsFile : public ::testing::Test {
 protected:
  /// As a program does that has just started.
  void startAnew() { place_.emplace(Settings::place, Settings::Place{file_.string()}); }
  void SetUp() override { startAnew(); }

  /// Reads, changes and reads again, as a game does, and expects one line about it.
  void expectToPlayOn(const std::string& read) const {
    QElapsedTimer time;
    time.start();
    testing::internal::CaptureStderr();
    EXPECT_EQ(soundOr("True"), read);
    Settings::save(kApplication, "Sound", "Status", "changed");
    Settings::save(kApplication, "Recent Puzzles", "Recent1", "a");
    EXPECT_EQ(soundOr("True"), "changed");
    EXPECT_EQ(Settings::get(kApplication, "Recent Puzzles", "Recent1", ""), "a");
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    EXPECT_NE(said.find(file_.string()), std::string::npos) << said;
    EXPECT_LT(time.elapsed(), 5000);  // not each question waits for the lock anew
  }

  const QTemporaryDir folder_;
  const fs::path root_ = folder_.path().toStdString();
  const fs::path file_ = root_ / "settings.conf";
  std::optional<Replacement<Settings::Place>> place_;
};

TEST_F(SettingsFile, KeepsAnyTextInAFileOfTheUsersAlone) {
  const std::string odd = "a=b\n[c] %41 \\ \xC3\xA4 \xE2\x82\xAC\t;";
  Settings::save(kApplication, "Sec tion/2", "K=ey", odd);
  soundOr("");
  startAnew();
  EXPECT_EQ(Settings::get(kApplication, "Sec tion/2", "K=ey", "?"), odd);
  struct stat status {};
  ASSERT_EQ(::stat(file_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600u);
  EXPECT_EQ(std::distance(fs::directory_iterator(root_), {}), 1) << "a lock was left";
}

TEST_F(SettingsFile, TakesInWhatAnotherProgramSavedMeanwhile) {
  Settings::save(kApplication, "Sound", "Status", "False");
  putBytes(file_, "[Sound]\nStatus=True\n[Other]\nKey=kept\n");
  Settings::save(kApplication, "Sound", "Extra", "x");
  EXPECT_EQ(soundOr("?"), "True");
  EXPECT_EQ(Settings::get(kApplication, "Other", "Key", "?"), "kept");
}

TEST_F(SettingsFile, ALockOfAnotherMachineIsNotWaitedFor) {
  putBytes(file_, "[Sound]\nStatus=False\n");
  putBytes(file_.string() + ".lock", kForeignLock);
  expectToPlayOn("False");
  EXPECT_EQ(bytesOf(file_), "[Sound]\nStatus=False\n");
}

TEST_F(SettingsFile, APipeOrAFolderInAFilesPlaceIsNotWaitedFor) {
  ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
  expectToPlayOn("True");
  fs::remove(file_);
  fs::create_directory(file_);
  startAnew();
  expectToPlayOn("True");
  fs::remove(file_);
  ASSERT_EQ(::mkfifo((file_.string() + ".lock").c_str(), 0600), 0);
  startAnew();
  expectToPlayOn("True");
}

/// The user's and the system's folders of settings, both the test's own.
class SettingsFolders : public SettingsFile {
 protected:
  void SetUp() override {
    for (const fs::path& folder : {user_, system_}) fs::create_directories(folder);
    QStandardPaths::setTestModeEnabled(false);
    qputenv("XDG_CONFIG_HOME", user_.c_str());
    qputenv("XDG_CONFIG_DIRS", system_.c_str());
    place_.emplace(Settings::place, Settings::Place{});
  }
  void TearDown() override {
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("XDG_CONFIG_DIRS");
    QStandardPaths::setTestModeEnabled(true);
  }

  const fs::path user_ = root_ / "user", system_ = root_ / "system";
};

TEST_F(SettingsFolders, TheToolkitsFileDialogStoresNothing) {
  QTimer untilShown;
  QObject::connect(&untilShown, &QTimer::timeout, [] {
    if (auto* shown = qobject_cast<QDialog*>(QApplication::activeModalWidget())) shown->accept();
  });
  untilShown.start(0);
  putBytes(root_ / "a.qzl", "");
  Dialogs::FileDialog dialog;
  dialog.folder = root_;
  dialog.fileName = root_ / "a.qzl";
  EXPECT_TRUE(dialog.ShowOpen());
  QCoreApplication::processEvents();
  EXPECT_TRUE(fs::is_empty(user_)) << *fs::directory_iterator(user_);
}

TEST_F(SettingsFolders, NeitherTheSystemsNorTheMakersFilesAreRead) {
  const std::string text = "[Sound]\nStatus=foreign\n";
  const std::string own = "Kelvo Software/Quinzolith.conf", makers = "Kelvo Software.conf";
  for (const fs::path& folder : {user_, system_}) fs::create_directory(folder / "Kelvo Software");
  for (const fs::path& file : {user_ / makers, system_ / makers, system_ / own})
    putBytes(file, text);
  EXPECT_EQ(soundOr("none"), "none");
  Settings::save(kApplication, "Sound", "Status", "False");
  EXPECT_EQ(bytesOf(user_ / own), "[Sound]\nStatus=False\n");
  EXPECT_EQ(bytesOf(system_ / own), text);
}

}  // namespace
