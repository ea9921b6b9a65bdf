#include "files/SafeFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/files/TestDisk.h"

namespace fs = std::filesystem;

namespace {

struct stat statusOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
  return status;
}

/// Runs in a process of its own, as a user to whom not all is allowed. True when `claim` holds.
bool holdsForAnOrdinaryUser(const std::function<bool()>& claim) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::getuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(2);
    ::_exit(claim() ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(SafeFile, OnlyAnOrdinaryFileWithoutADotExists) {
  TestFolder folder("exists");
  for (const char* name : {"a.qzl", ".hidden.qzl"}) putBytes(folder.path / name, "x");
  fs::create_directory(folder.path / "folder.qzl");
  fs::create_symlink("a.qzl", folder.path / "link.qzl");
  fs::create_symlink("none", folder.path / "dangling.qzl");
  EXPECT_TRUE(SafeFile::exists(folder.path / "a.qzl"));
  EXPECT_TRUE(SafeFile::exists(folder.path / "link.qzl"));
  for (const char* name : {".hidden.qzl", "folder.qzl", "dangling.qzl", "none.qzl", "a.qzl/b", ""})
    EXPECT_FALSE(SafeFile::exists(folder.path / name)) << name;
  EXPECT_EQ(reasonOf([&] { SafeFile::exists(folder.path / std::string(300, 'n')); }),
            "File name too long");
}

TEST(SafeFile, NoMoreThanTheCeilingIsReadOfAnOrdinaryFile) {
  TestFolder folder("read");
  const fs::path file = folder.path / "large";
  putBytes(file, "start");
  fs::resize_file(file, std::uintmax_t{1} << 30);
  TestDisk disk;
  EXPECT_EQ(SafeFile::read(file, 1000), "start" + std::string(995, '\0'));
  putBytes(file, std::string(777, 'y'));
  EXPECT_EQ(SafeFile::read(file, 1000), std::string(777, 'y'));
  EXPECT_EQ(SafeFile::read(file, 0), "");

  ASSERT_EQ(::mkfifo((folder.path / "pipe").c_str(), 0600), 0);
  for (const char* name : {"pipe", "."})
    EXPECT_EQ(reasonOf([&] { SafeFile::read(folder.path / name, 10); }),
              "This is not an ordinary file.");
  EXPECT_EQ(reasonOf([&] { SafeFile::read(folder.path / "none", 10); }),
            "No such file or directory");
}

TEST(SafeFile, AnExistingFileKeepsItsPermissionsAndOwner) {
  TestFolder folder("mode");
  const fs::path file = folder.path / "a.qzl";
  for (const mode_t mode : {0600u, 0640u, 0666u, 0604u}) {
    putBytes(file, "old");
    ASSERT_EQ(::chmod(file.c_str(), mode), 0);
    const bool root = ::getuid() == 0;
    ASSERT_TRUE(!root || ::chown(file.c_str(), 1234, 2345) == 0);
    const ino_t before = statusOf(file).st_ino;
    SafeFile::write(file, "new");
    EXPECT_EQ(bytesOf(file), "new");
    EXPECT_NE(statusOf(file).st_ino, before);  // another file has taken the name
    EXPECT_EQ(statusOf(file).st_mode & 07777, mode);
    if (root) {
      EXPECT_EQ(statusOf(file).st_uid, 1234u);
      EXPECT_EQ(statusOf(file).st_gid, 2345u);
    }
  }
  const mode_t mask = ::umask(027);
  SafeFile::write(folder.path / "new.qzl", "new");
  ::umask(mask);
  EXPECT_EQ(statusOf(folder.path / "new.qzl").st_mode & 07777, 0640u);
}

TEST(SafeFile, AFileThatCannotBeGivenAwayIsSavedAsTheUsersOwn) {
  if (::getuid() != 0) GTEST_SKIP() << "only root can make a file of another owner";
  TestFolder folder("owner");
  const fs::path file = folder.path / "a.qzl";
  putBytes(file, "old");
  ASSERT_EQ(::chown(file.c_str(), 1234, 2345), 0);
  ASSERT_EQ(::chmod(file.c_str(), 0664), 0);
  TestDisk disk;
  disk.before = [](int, const std::string& name) { return name == "setOwner" ? EPERM : 0; };
  SafeFile::write(file, "new");
  EXPECT_EQ(bytesOf(file), "new");
  EXPECT_EQ(statusOf(file).st_mode & 07777, 0664u);
  EXPECT_EQ(statusOf(file).st_uid, 0u);
}

TEST(SafeFile, WhatMayNotBeWrittenIsRefusedAndStays) {
  TestFolder folder("refused");
  const fs::path file = folder.path / "a.qzl";
  putBytes(file, "old");
  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
  fs::create_directory(folder.path / "folder.qzl");
  fs::create_symlink("round.qzl", folder.path / "round.qzl");
  for (const auto& [name, reason] : {std::pair{"a.qzl", "The file is read-only."},
                                     {"folder.qzl", "This is not an ordinary file."},
                                     {"/dev/null", "This is not an ordinary file."},
                                     {"round.qzl", "Too many levels of symbolic links"},
                                     {"none/a.qzl", "No such file or directory"}})
    EXPECT_EQ(reasonOf([&] { SafeFile::write(folder.path / name, "new"); }), reason) << name;
  EXPECT_EQ(bytesOf(file), "old");
  EXPECT_EQ(folder.names(), (std::set<std::string>{"a.qzl", "folder.qzl", "round.qzl"}));
}

TEST(SafeFile, ALinkStaysALinkAndItsTargetIsReplaced) {
  TestFolder folder("link");
  fs::create_directory(folder.path / "real");
  fs::create_symlink("real/second", folder.path / "first.qzl");
  fs::create_symlink("target.qzl", folder.path / "real" / "second");
  // Created through the dangling link, then replaced.
  for (const char* bytes : {"one", "another"}) {
    SafeFile::write(folder.path / "first.qzl", bytes);
    EXPECT_TRUE(fs::is_symlink(folder.path / "first.qzl"));
    EXPECT_TRUE(fs::is_symlink(folder.path / "real" / "second"));
    EXPECT_FALSE(fs::is_symlink(folder.path / "real" / "target.qzl"));
    EXPECT_EQ(bytesOf(folder.path / "real" / "target.qzl"), bytes);
  }
}

TEST(SafeFile, TheLongestNameAndANameWithoutAFolderAreSaved) {
  TestFolder folder("names");
  const std::string longest(255, 'n');
  SafeFile::write(folder.path / longest, "new");
  EXPECT_EQ(bytesOf(folder.path / longest), "new");
  const fs::path old = fs::current_path();
  fs::current_path(folder.path);
  SafeFile::write("plain.qzl", "new");
  fs::current_path(old);
  EXPECT_EQ(folder.names(), (std::set<std::string>{longest, "plain.qzl"}));
}

TEST(SafeFile, AFileThatMayNotGrowKeepsItsOldBytesAlsoInPlace) {
  TestFolder folder("limit");
  const fs::path file = folder.path / "a.qzl";
  const std::string old(3000, 'o');
  putBytes(file, old);
  for (const bool inPlace : {false, true}) {
    TestDisk disk;
    disk.before = [&](int, const std::string& call) {
      return inPlace && call == "create" ? EACCES : 0;
    };
    struct rlimit usual {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto usualHandler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 4000, usual.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string reason = reasonOf([&] { SafeFile::write(file, std::string(9000, 'n')); });
    ::setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, usualHandler);
    EXPECT_EQ(reason, "File too large");
    EXPECT_EQ(bytesOf(file), old);
    EXPECT_EQ(folder.names(), std::set<std::string>{"a.qzl"});
  }
}

TEST(SafeFile, WhereTheFolderMayNotBeWrittenAWritableFileIsWrittenInPlace) {
  TestFolder folder("in place");
  const fs::path file = folder.path / "a.qzl", fixed = folder.path / "fixed.qzl";
  for (const fs::path& each : {file, fixed}) putBytes(each, "a longer old text");
  ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(fixed.c_str(), 0644), 0);
  ASSERT_EQ(::chmod(folder.path.c_str(), 0555), 0);
  const ino_t before = statusOf(file).st_ino;
  EXPECT_TRUE(holdsForAnOrdinaryUser([&] {
    SafeFile::write(file, "new");
    return bytesOf(file) == "new";
  }));
  EXPECT_EQ(statusOf(file).st_ino, before);
  EXPECT_TRUE(holdsForAnOrdinaryUser([&] {
    return reasonOf([&] { SafeFile::write(folder.path / "other.qzl", "new"); }) ==
           "Permission denied";
  }));
  if (::getuid() == 0) {
    EXPECT_TRUE(holdsForAnOrdinaryUser([&] {
      return reasonOf([&] { SafeFile::write(fixed, "new"); }) == "The file is read-only.";
    }));
    EXPECT_EQ(bytesOf(fixed), "a longer old text");
  }
  ASSERT_EQ(::chmod(folder.path.c_str(), 0755), 0);
}

TEST(SafeFile, InASharedFolderAnothersWritableFileIsWrittenInPlace) {
  if (::getuid() != 0) GTEST_SKIP() << "only root can make a file of another owner";
  TestFolder folder("shared");
  const fs::path file = folder.path / "a.qzl";
  putBytes(file, "old");
  ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder.path.c_str(), 01777), 0);  // only a file's owner may rename over it
  EXPECT_TRUE(holdsForAnOrdinaryUser([&] {
    SafeFile::write(file, "new");
    SafeFile::write(folder.path / "mine.qzl", "new");
    return true;
  }));
  EXPECT_EQ(bytesOf(file), "new");
  EXPECT_EQ(statusOf(file).st_uid, 0u);
  EXPECT_EQ(folder.names(), (std::set<std::string>{"a.qzl", "mine.qzl"}));
}

}  // namespace
