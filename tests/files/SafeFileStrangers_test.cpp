// What other users of the machine try while a player saves. The files of three users are needed, so
// most of it is tried as root only: the player and Mallory are users who need not exist.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utime.h>

#include <csignal>
#include <ctime>
#include <vector>

#include "files/HeldSignals.h"
#include "files/SafeFile.h"
#include "tests/files/TestDisk.h"

namespace fs = std::filesystem;

namespace {

constexpr uid_t kPlayer = 20001, kMallory = 20002;
constexpr const char* kForeignLink = "This is another user's link, which is not followed.";

void give(const fs::path& file, uid_t owner, mode_t mode) {
  ASSERT_EQ(::lchown(file.c_str(), owner, owner), 0) << file;
  if (!fs::is_symlink(file)) {
    ASSERT_EQ(::chmod(file.c_str(), mode), 0) << file;
  }
}

/// A folder that all share, as /tmp is one, beside the player's private file and Mallory's home.
class Strangers : public ::testing::Test {
 protected:
  void SetUp() override {
    if (::getuid() != 0) GTEST_SKIP() << "only root can play three users";
    for (const fs::path& folder : {shared, home, mallorys}) fs::create_directory(folder);
    give(top.path, 0, 0755);
    give(shared, 0, 01777);
    give(home, kPlayer, 0755);
    give(mallorys, kMallory, 0755);
    put(home / "private", "private", kPlayer, 0600);
  }

  static void put(const fs::path& file, std::string_view bytes, uid_t owner, mode_t mode) {
    putBytes(file, bytes);
    give(file, owner, mode);
  }
  static void link(const fs::path& target, const fs::path& name, uid_t owner) {
    fs::create_symlink(target, name);
    give(name, owner, 0);
  }

  /// What a save of "new" by the player tells; empty when it went well. Before each call to the
  /// disk `attack` runs as root.
  static std::string playersSave(const fs::path& file,
                                 const std::function<void(const std::string& call)>& attack = {}) {
    const bool dropped = ::setegid(kPlayer) == 0 && ::seteuid(kPlayer) == 0;
    EXPECT_TRUE(dropped);
    TestDisk disk;
    disk.before = [&](int, const std::string& call) {
      EXPECT_EQ(::seteuid(0), 0);
      if (attack) attack(call);
      EXPECT_EQ(::seteuid(kPlayer), 0);
      return 0;
    };
    const std::string reason = reasonOf([&] { SafeFile::writeOver(file, "new", 1000); });
    EXPECT_TRUE(::seteuid(0) == 0 && ::setegid(0) == 0);
    return reason;
  }

  TestFolder top{"strangers"};
  const fs::path shared = top.path / "shared", home = top.path / "home";
  const fs::path mallorys = top.path / "mallory";
};

TEST_F(Strangers, NobodyElsesLinkIsFollowed) {
  link(home / "private", shared / "castle.qzl", kMallory);
  link(home / "made", shared / "dangling.qzl", kMallory);
  link(home, shared / "folder", kMallory);
  link(home / "private", mallorys / "castle.qzl", kMallory);
  link("../home/private", shared / "mine.qzl", kPlayer);
  link(shared / "castle.qzl", home / "onward.qzl", kPlayer);
  give(mallorys, kMallory, 0777);
  link(home / "private", mallorys / "moved.qzl", kPlayer);  // Mallory gave it this name
  for (const fs::path& name :
       {shared / "castle.qzl", shared / "dangling.qzl", shared / "folder" / "private",
        shared / "folder" / "made", mallorys / "castle.qzl", mallorys / "moved.qzl",
        home / "onward.qzl"}) {
    EXPECT_EQ(playersSave(name), kForeignLink) << name;
    EXPECT_EQ(bytesOf(home / "private"), "private") << name;
    EXPECT_FALSE(fs::exists(home / "made")) << name;
  }
  EXPECT_EQ(playersSave(shared / "mine.qzl"), "");
  EXPECT_EQ(bytesOf(home / "private"), "newvate");
  EXPECT_TRUE(fs::is_symlink(shared / "mine.qzl"));
}

TEST_F(Strangers, WhatTakesTheFilesPlaceWhileItIsSavedIsNeitherReadNorWritten) {
  // The sticky folder refuses the rename over Mallory's file, so that is written in place.
  for (int at = 1;; ++at) {
    SCOPED_TRACE(at);
    const fs::path castle = shared / "castle.qzl";
    fs::remove(castle);
    put(castle, "Mallory's", kMallory, 0666);
    int calls = 0;
    const std::string reason = playersSave(castle, [&](const std::string&) {
      if (++calls != at) return;
      fs::rename(castle, mallorys / "aside");
      link(home / "private", castle, kMallory);
    });
    ASSERT_EQ(bytesOf(home / "private"), "private") << reason;
    if (calls < at) {
      EXPECT_EQ(reason, "");
      EXPECT_EQ(bytesOf(castle), "newlory's");
      break;
    }
    ASSERT_EQ(bytesOf(castle), "private") << "the link was written over";
    fs::remove(mallorys / "aside");
  }
}

TEST_F(Strangers, AFolderThatIsExchangedWhileItIsSavedIntoLeadsNowhereElse) {
  const fs::path folder = shared / "folder";
  put(home / "castle.qzl", "the player's", kPlayer, 0600);
  for (int at = 1;; ++at) {
    SCOPED_TRACE(at);
    fs::remove_all(folder);
    fs::create_directory(folder);
    give(folder, kMallory, 0777);
    int calls = 0;
    playersSave(folder / "castle.qzl", [&](const std::string&) {
      if (++calls != at) return;
      fs::remove_all(mallorys / "aside");
      fs::rename(folder, mallorys / "aside");
      link(home, folder, kMallory);
    });
    ASSERT_EQ(bytesOf(home / "castle.qzl"), "the player's");
    if (calls < at) break;
  }
}

TEST_F(Strangers, ASecondNameInAnothersFolderDoesNotLeadToTheFile) {
  fs::create_hard_link(home / "private", mallorys / "castle.qzl");
  EXPECT_EQ(playersSave(mallorys / "castle.qzl"),
            "This is another user's name for a file of yours.");
  fs::create_hard_link(home / "private", shared / "castle.qzl");
  EXPECT_EQ(playersSave(shared / "castle.qzl"), "");  // takes the name, not the file
  EXPECT_EQ(bytesOf(home / "private"), "private");
}

TEST_F(Strangers, WhatOwnKilledSavesLeftIsRemovedAfterAnHour) {
  const auto leave = [&](const char* name, uid_t owner, std::time_t age) {
    put(shared / name, "", owner, 0600);
    const std::time_t then = std::time(nullptr) - age;
    const utimbuf times{then, then};
    EXPECT_EQ(::utime((shared / name).c_str(), &times), 0);
  };
  leave(".quinzolith-1.tmp", kPlayer, 3700);
  leave(".quinzolith-2.tmp", kPlayer, 3000);
  leave(".quinzolith-3.tmp", kMallory, 3700);
  leave("quinzolith-4.tmp", kPlayer, 3700);
  link(home / "private", shared / ".quinzolith-5.tmp", kPlayer);
  EXPECT_EQ(playersSave(shared / "castle.qzl"), "");
  EXPECT_EQ(fs::exists(shared / ".quinzolith-1.tmp"), false);
  for (const char* name : {".quinzolith-2.tmp", ".quinzolith-3.tmp", "quinzolith-4.tmp"})
    EXPECT_TRUE(fs::exists(shared / name)) << name;
  EXPECT_TRUE(fs::is_symlink(shared / ".quinzolith-5.tmp"));
}

TEST_F(Strangers, AFileThatMayOnlyBeWrittenIsSavedOverUnlessItsTailIsWanted) {
  put(home / "a.qzl", "old", kPlayer, 0222);
  EXPECT_EQ(playersSave(home / "a.qzl"), "");
  EXPECT_EQ(bytesOf(home / "a.qzl"), "new");
  struct stat status {};
  ASSERT_EQ(::stat((home / "a.qzl").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0222u);
  put(home / "a.qzl", "longer", kPlayer, 0222);
  EXPECT_EQ(playersSave(home / "a.qzl"), "Permission denied");
  EXPECT_EQ(bytesOf(home / "a.qzl"), "longer");
}

TEST(SafeFile, ATakenNameBesideTheFileIsTriedAnewAndCannotBeGuessed) {
  TestFolder folder("taken");
  TestDisk disk;
  std::set<std::string> names;
  int taken = 0;
  disk.before = [&](int, const std::string& call) {
    if (call == "write")
      for (const std::string& name : folder.names()) names.insert(name);
    return call == "create" && ++taken % 50 != 0 ? EEXIST : 0;
  };
  for (int i = 0; i < 10; ++i) SafeFile::write(folder.path / "a.qzl", "new");
  EXPECT_EQ(taken, 500);
  EXPECT_EQ(names.size(), 11u);  // ten names, and a.qzl
  for (const std::string& name : names) {
    EXPECT_EQ(name.find(std::to_string(::getpid())), std::string::npos);
    EXPECT_TRUE(name == "a.qzl" || name.size() > 30) << name;
  }
}

TEST(SafeFile, ASignalWaitsUntilTheSaveIsDoneAndLeavesNothing) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    TestFolder folder("signal");
    const pid_t child = ::fork();
    if (child == 0) {
      std::signal(signal, SIG_DFL);
      TestDisk disk;
      disk.before = [&](int, const std::string& call) {
        if (call == "write") ::raise(signal);
        return 0;
      };
      SafeFile::write(folder.path / "a.qzl", "new");
      ::_exit(0);  // never: the signal ends it first
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
    EXPECT_EQ(folder.names(), std::set<std::string>{"a.qzl"});
    EXPECT_EQ(bytesOf(folder.path / "a.qzl"), "new");
  }
  EXPECT_FALSE(HeldSignals::any());
}

}  // namespace
