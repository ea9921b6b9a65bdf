#include "files/SafeFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/files/TestDisk.h"

namespace fs = std::filesystem;

namespace {

struct stat statusOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
  return status;
}

/// The words of the exception that `action` throws in a process of its own, whose user is one to
/// whom not all is allowed.
std::string asAnOrdinaryUser(const std::function<void()>& action) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    if (::getuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(2);
    const std::string reason = reasonOf(action);
    ::_exit(::write(ends[1], reason.data(), reason.size()) < 0);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  ::close(ends[1]);
  char reason[200];
  const ssize_t size = ::read(ends[0], reason, sizeof reason);
  ::close(ends[0]);
  return {reason, static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
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

TEST(SafeFile, AnExistingFileKeepsItsPermissionsAndItsOwnerIfItCanBeGivenAway) {
  TestFolder folder("mode");
  const fs::path file = folder.path / "a.qzl";
  const bool root = ::getuid() == 0;
  for (const bool mayGive : {true, false}) {
    TestDisk disk;
    disk.before = [&](int, const std::string& name) {
      return name == "setOwner" && !mayGive ? EPERM : 0;
    };
    for (const mode_t mode : {0600u, 0640u, 0664u, 0666u, 0604u}) {
      putBytes(file, "old");
      ASSERT_EQ(::chmod(file.c_str(), mode), 0);
      ASSERT_TRUE(!root || ::chown(file.c_str(), 1234, 2345) == 0);
      const ino_t before = statusOf(file).st_ino;
      SafeFile::write(file, "new");
      EXPECT_EQ(bytesOf(file), "new");
      EXPECT_NE(statusOf(file).st_ino, before);  // another file has taken the name
      EXPECT_EQ(statusOf(file).st_mode & 07777, mode);
      EXPECT_EQ(statusOf(file).st_uid, root && mayGive ? 1234u : ::getuid());
      EXPECT_EQ(statusOf(file).st_gid, root && mayGive ? 2345u : ::getgid());
    }
  }
  const mode_t mask = ::umask(027);
  SafeFile::write(folder.path / "new.qzl", "new");
  ::umask(mask);
  EXPECT_EQ(statusOf(folder.path / "new.qzl").st_mode & 07777, 0640u);
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

TEST(SafeFile, WhereTheFolderMayNotBeWrittenAWritableFileIsWrittenInPlace) {
  TestFolder folder("in place");
  const fs::path file = folder.path / "a.qzl", fixed = folder.path / "fixed.qzl";
  for (const fs::path& each : {file, fixed}) putBytes(each, "a longer old text");
  ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(fixed.c_str(), 0644), 0);
  ASSERT_EQ(::chmod(folder.path.c_str(), 0555), 0);
  const ino_t before = statusOf(file).st_ino;
  for (const auto& [name, reason] : {std::pair{"a.qzl", ""},
                                     {"other.qzl", "Permission denied"},
                                     {"fixed.qzl", "The file is read-only."}}) {
    if (::getuid() != 0 && name == std::string("fixed.qzl")) continue;  // it is the user's own
    EXPECT_EQ(asAnOrdinaryUser([&] { SafeFile::write(folder.path / name, "new"); }), reason);
  }
  EXPECT_EQ(bytesOf(file), "new");
  EXPECT_EQ(statusOf(file).st_ino, before);
  EXPECT_EQ(bytesOf(fixed), "a longer old text");
  ASSERT_EQ(::chmod(folder.path.c_str(), 0755), 0);
}

}  // namespace
