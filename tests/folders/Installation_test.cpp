// Where the game finds its files and the player's puzzles. What concerns several users is tried as
// root only: the player and Mallory are users who need not exist.
#include "folders/Installation.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "tests/files/TestDisk.h"

namespace fs = std::filesystem;

namespace {

constexpr uid_t kPlayer = 20001, kMallory = 20002;

mode_t modeOf(const fs::path& place) {
  struct stat status {};
  EXPECT_EQ(::stat(place.c_str(), &status), 0) << place;
  return status.st_mode & 07777;
}

/// A program with all that it brings, a former folder of all users, and a player's home.
class Folders : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const fs::path& folder : {program / "puzzles", program / "tiles", former, home})
      fs::create_directories(folder);
    putBytes(program / "puzzles" / "rocket.qzl", "rocket");
    putBytes(program / "Quinzolith.chm", "help");
    ::setenv("HOME", home.c_str(), 1);
    ::unsetenv("XDG_DATA_HOME");
  }
  void TearDown() override { fs::permissions(program, fs::perms::owner_all); }

  Installation find() { return Installation::find(program); }

  void expectAllInProgramFolder() {
    EXPECT_EQ(Installation::expectedUser(program), program / "User");
    const Installation found = find();
    EXPECT_EQ(found.folder, program);
    EXPECT_EQ(found.user, program / "User");
    EXPECT_FALSE(fs::exists(home / ".local"));
  }

  void expectPlayersOwn(const fs::path& folder) {
    EXPECT_EQ(Installation::expectedUser(program), folder / "User");
    const Installation found = find();
    EXPECT_EQ(found.folder, folder);
    EXPECT_EQ(found.user, folder / "User");
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_TRUE(fs::is_directory(folder / "User"));
    EXPECT_EQ(bytesOf(folder / "puzzles" / "rocket.qzl"), "rocket");
    EXPECT_EQ(bytesOf(folder / "Quinzolith.chm"), "help");
    EXPECT_TRUE(fs::is_directory(folder / "tiles"));
  }

  /// A `User` that no player may have for their own, whoever runs the test.
  void openUserToAll() {
    fs::create_directories(program / "User");
    fs::permissions(program / "User", fs::perms::all | fs::perms::sticky_bit);
  }

  TestFolder top{"folders"};
  const fs::path program = top.path / "Kelvo Software" / "Quinzolith";
  const fs::path former = top.path / "former";
  const Replacement<fs::path> place{Installation::formerUser, former};
  const fs::path home = top.path / "home";
  const fs::path own = home / ".local" / "share" / "quinzolith";
};

TEST_F(Folders, TheProgramsFolderHoldsAUserThatIsThisUsersOnly) {
  const mode_t mask = ::umask(0);
  expectAllInProgramFolder();
  ::umask(mask);
  EXPECT_EQ(modeOf(program / "User"), 0755U) << "nobody else writes there, whatever the mask";
  putBytes(program / "User" / "castle.qzl", "castle");
  expectAllInProgramFolder();
  EXPECT_EQ(bytesOf(program / "User" / "castle.qzl"), "castle");
  fs::remove_all(program / "User");
  putBytes(program / "User", "a plain file counts as there");
  expectAllInProgramFolder();
  fs::remove(program / "User");
  fs::create_directory(home / "elsewhere");
  fs::create_directory_symlink(home / "elsewhere", program / "User");
  expectAllInProgramFolder();
}

TEST_F(Folders, OtherwiseThePlayerHasAFolderOfTheirOwn) {
  openUserToAll();
  expectPlayersOwn(own);
  EXPECT_EQ(modeOf(home / ".local"), 0700U);
  ::setenv("XDG_DATA_HOME", "data", 1);
  expectPlayersOwn(own);
  ::setenv("XDG_DATA_HOME", "", 1);
  expectPlayersOwn(own);
  ::setenv("XDG_DATA_HOME", (top.path / "data").c_str(), 1);
  expectPlayersOwn(top.path / "data" / "quinzolith");
  ::unsetenv("XDG_DATA_HOME");
  fs::remove_all(program / "User");
  fs::create_directory_symlink(home / "gone", program / "User");
  expectPlayersOwn(own);
  EXPECT_FALSE(fs::exists(home / "gone"));
}

TEST_F(Folders, PackagesAreLeftAlone) {
  for (const char* folder : {"/usr", "/usr/lib/quinzolith/Kelvo Software/Quinzolith"})
    EXPECT_TRUE(isPackages(folder)) << folder;
  for (const char* folder : {"/usr/local/Kelvo Software/Quinzolith", "/usrs/ann", "/home/ann", "/"})
    EXPECT_FALSE(isPackages(folder)) << folder;
}

TEST_F(Folders, ThePlayersFolderOutlivesMovesAndKeepsWhatThePlayerPutThere) {
  openUserToAll();
  expectPlayersOwn(own);
  putBytes(own / "User" / "castle.qzl", "castle");
  fs::remove(own / "tiles");
  fs::create_directory(own / "tiles");
  putBytes(own / "tiles" / "tiles.jpg", "the player's");
  const fs::path moved = top.path / "moved";
  fs::rename(program, moved);
  EXPECT_EQ(Installation::find(moved).folder, own);
  EXPECT_EQ(bytesOf(own / "puzzles" / "rocket.qzl"), "rocket");
  EXPECT_EQ(bytesOf(own / "tiles" / "tiles.jpg"), "the player's");
  EXPECT_EQ(bytesOf(own / "User" / "castle.qzl"), "castle");
  fs::rename(moved, program);
}

TEST_F(Folders, FormerPuzzlesAreCopiedOnce) {
  openUserToAll();
  putBytes(program / "User" / "castle.qzl", "castle");
  putBytes(former / "castle.qzl", "another castle");
  putBytes(former / "Ring.QZL", "ring");
  putBytes(former / "notes.txt", "no puzzle");
  putBytes(former / ".hidden.qzl", "hidden");
  putBytes(former / "vast.qzl", "");
  fs::resize_file(former / "vast.qzl", std::uintmax_t{1} << 40);
  fs::create_symlink(former / "notes.txt", former / "link.qzl");
  ASSERT_EQ(::mkfifo((former / "pipe.qzl").c_str(), 0600), 0);
  expectPlayersOwn(own);
  std::set<std::string> copied;
  for (const auto& entry : fs::directory_iterator(own / "User"))
    copied.insert(entry.path().filename().string());
  EXPECT_EQ(copied, (std::set<std::string>{"Ring.QZL", "castle.qzl"}));
  EXPECT_EQ(bytesOf(own / "User" / "castle.qzl"), "castle");
  fs::remove(own / "User" / "castle.qzl");
  expectPlayersOwn(own);
  EXPECT_FALSE(fs::exists(own / "User" / "castle.qzl")) << "what the player deleted comes back";
  EXPECT_EQ(bytesOf(former / "Ring.QZL"), "ring");
}

TEST_F(Folders, WithoutAHomeToWriteTheGameHasWhatItBrings) {
  openUserToAll();
  putBytes(home / ".local", "a file in the way");
  Installation found = find();
  EXPECT_EQ(found.folder, program);
  EXPECT_FALSE(fs::exists(found.user));
  fs::remove(home / ".local");
  fs::create_directories(own);
  fs::permissions(own, fs::perms::all);
  found = find();
  EXPECT_EQ(found.folder, program);
  EXPECT_EQ(found.user, "") << "others could exchange what lies there";
}

/// The same with the system's users: the program belongs to root, the home to the player.
class Users : public Folders {
 protected:
  void SetUp() override {
    if (::getuid() != 0) GTEST_SKIP() << "only root can play several users";
    Folders::SetUp();
    fs::permissions(top.path, fs::perms(0755));
    give(home, kPlayer);
  }
  void TearDown() override {
    if (::getuid() == 0) beRoot();
  }

  static void give(const fs::path& place, uid_t owner) {
    ASSERT_EQ(::lchown(place.c_str(), owner, owner), 0) << place;
  }
  static void be(uid_t user, gid_t group) {
    ASSERT_EQ(::setegid(group), 0);
    ASSERT_EQ(::seteuid(user), 0);
  }
  static void beRoot() { ASSERT_TRUE(::seteuid(0) == 0 && ::setegid(0) == 0); }
};

TEST_F(Users, WhatAnotherUserPutThereIsNotThePlayers) {
  fs::permissions(program, fs::perms(0777));
  fs::create_directory(program / "User");
  give(program / "User", kMallory);
  be(kPlayer, kPlayer);
  expectPlayersOwn(own);
  beRoot();
  fs::remove_all(program / "User");
  fs::create_directory(home / "private");
  give(home / "private", kPlayer);
  fs::create_directory_symlink(home / "private", program / "User");
  give(program / "User", kMallory);
  be(kPlayer, kPlayer);
  expectPlayersOwn(own);
}

TEST_F(Users, OfThePuzzlesThatAllSharedThePlayerGetsTheirOwn) {
  putBytes(former / "mine.qzl", "mine");
  putBytes(former / "mallorys.qzl", "mallory's");
  give(former / "mine.qzl", kPlayer);
  give(former / "mallorys.qzl", kMallory);
  be(kPlayer, kPlayer);
  expectPlayersOwn(own);
  EXPECT_EQ(bytesOf(own / "User" / "mine.qzl"), "mine");
  EXPECT_FALSE(fs::exists(own / "User" / "mallorys.qzl"));
}

TEST_F(Users, AHomeThatMayNotBeWrittenStaysAsItIs) {
  give(home, 0);
  be(kPlayer, kPlayer);
  EXPECT_EQ(find().folder, program);
  EXPECT_FALSE(fs::exists(find().user));
  beRoot();
  fs::create_directories(own / "User");
  for (const fs::path& folder : {own, own / "User"}) give(folder, kPlayer);
  fs::permissions(own, fs::perms(0500));
  be(kPlayer, kPlayer);
  EXPECT_EQ(find().folder, program) << "the links could not be made";
  EXPECT_EQ(find().user, own / "User") << "what is there can still be played";
}

TEST_F(Users, AGroupOfThePlayerAloneMayWrite) {
  const passwd* account = ::getpwnam("games");
  const passwd games = account ? *account : passwd{};
  const group* ofOthers = ::getgrnam("mail");
  if (!account || !ofOthers) GTEST_SKIP() << "no accounts to try it with";
  const gid_t mail = ofOthers->gr_gid;
  fs::create_directory(program / "User");
  fs::permissions(program / "User", fs::perms(0775));
  ASSERT_EQ(::chown((program / "User").c_str(), games.pw_uid, games.pw_gid), 0);
  give(home, games.pw_uid);
  be(games.pw_uid, games.pw_gid);
  expectAllInProgramFolder();
  beRoot();
  ASSERT_EQ(::chown((program / "User").c_str(), games.pw_uid, mail), 0);
  be(games.pw_uid, games.pw_gid);
  expectPlayersOwn(own);
}

}  // namespace
