// The sweep: the first, second, third ... call to the disk fails, until a save gets through.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <tuple>

#include "files/SafeFile.h"
#include "tests/files/TestDisk.h"
#include "tests/model/BareTarget.h"
#include "tests/model/SamplePuzzle.h"

namespace fs = std::filesystem;

namespace {

/// One state of the disk before a save. `old` is empty where there is no file yet.
struct Scenario {
  const char* name;
  std::string old;
  bool throughLink = false;
  const char* refused = "";  ///< the call that the folder does not allow, as EACCES
};

std::ostream& operator<<(std::ostream& out, const Scenario& scenario) {
  return out << scenario.name;
}

const std::string kLonger = "old" + std::string(700, '.') + "tail";

class Sweep : public ::testing::TestWithParam<Scenario> {
 protected:
  Sweep() {
    laySample(windows.editor.grid);
    if (GetParam().throughLink) fs::create_symlink(target, named);
    reset();
    EXPECT_TRUE(save()) << basTiles::LastFileError;
    wanted = bytesOf(target);
    EXPECT_EQ(wanted.size(), std::max<std::size_t>(465, GetParam().old.size()));
  }

  void reset() const {
    fs::remove(target);
    if (!GetParam().old.empty()) putBytes(target, GetParam().old);
  }

  bool save() const { return basTiles::SavePuzzle(named, windows.editor); }

  /// Saves while the n-th call fails. The name of that call; empty when there were fewer.
  std::string saveWithFault(int n, int error, bool& saved) const {
    std::string failed;
    TestDisk disk;
    disk.before = [&](int number, const std::string& call) {
      if (number != n) return call == GetParam().refused ? EACCES : 0;
      failed = call;
      return error;
    };
    saved = save();
    return failed;
  }

  /// Beside the file, the last steps fail when the new bytes are there; in place they never stay.
  bool mayBeNew() const { return GetParam().refused == std::string(); }

  std::set<std::string> expectedNames() const {
    std::set<std::string> names;
    if (GetParam().throughLink) names.insert("link.qzl");
    if (fs::exists(target)) names.insert("target.qzl");
    return names;
  }

  TestFolder folder{"sweep"};
  const fs::path target = folder.path / "target.qzl";
  const fs::path named = GetParam().throughLink ? folder.path / "link.qzl" : target;
  mutable BareWindows windows;
  Replacement<PuzzleStore> store{basTiles::store,
                                 {SafeFile::exists, SafeFile::read, SafeFile::writeOver}};
  std::string wanted;
};

TEST_P(Sweep, AnErrorIsToldExactlyIfItHappenedAndTheBytesAreTheOldOrTheNewOnes) {
  std::set<std::string> failedCalls;
  for (const int error : {EIO, ENOSPC}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(n);
      reset();
      bool saved = false;
      const std::string fault = saveWithFault(n, error, saved);
      const bool onlyLitter = fault == "remove" || fault == "list";  // the save itself went well
      ASSERT_EQ(saved, fault.empty() || onlyLitter) << fault;
      ASSERT_EQ(basTiles::LastFileError.empty(), saved);
      const std::string bytes = bytesOf(target);
      const bool isOld = bytes == GetParam().old, isNew = bytes == wanted;
      ASSERT_TRUE(saved ? isNew : isOld || (mayBeNew() && isNew)) << fault;
      ASSERT_TRUE(onlyLitter || folder.names() == expectedNames()) << fault;
      for (const auto& name : folder.names())
        if (name.front() == '.') fs::remove(folder.path / name);
      if (fault.empty()) break;
      failedCalls.insert(fault);
    }
  }
  for (const char* call : {"open", "create", "write", "sync", "statusOfOpen"})
    EXPECT_EQ(failedCalls.count(call), 1u) << call;
  EXPECT_EQ(failedCalls.count("truncate"), mayBeNew() ? 0u : 1u);
  EXPECT_EQ(failedCalls.count("close"), GetParam().refused == std::string("create") ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Saves, Sweep,
    ::testing::Values(Scenario{"NewFile", ""}, Scenario{"ShorterFile", "old"},
                      Scenario{"LongerFile", kLonger}, Scenario{"ThroughALink", kLonger, true},
                      Scenario{"FolderAllowsNoNewFile", kLonger, false, "create"},
                      Scenario{"FolderAllowsNoNewFileAndShorter", "old", true, "create"},
                      Scenario{"FolderAllowsNoRenaming", kLonger, false, "rename"}),
    [](const auto& scenario) { return std::string(scenario.param.name); });

constexpr int kKilled = 9;

/// Writes in a process that ends right before its n-th call. True when it got through.
bool writeAndDie(const fs::path& file, const std::string& bytes, int n) {
  const pid_t child = ::fork();
  if (child == 0) {
    TestDisk disk;
    disk.before = [n](int number, const std::string&) {
      if (number == n) ::_exit(kKilled);
      return 0;
    };
    SafeFile::write(file, bytes);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == kKilled));
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(SafeFileFaults, AProgramKilledAtAnyMomentLeavesTheOldBytesOrTheNewOnes) {
  TestFolder folder("killed");
  const fs::path file = folder.path / "a.qzl";
  const std::string old(500, 'o'), wanted(700, 'n');
  int oldOnes = 0, newOnes = 0;
  for (int n = 1;; ++n) {
    putBytes(file, old);
    const bool through = writeAndDie(file, wanted, n);
    const std::string bytes = bytesOf(file);
    ASSERT_TRUE(bytes == old || bytes == wanted) << n;
    ++(bytes == old ? oldOnes : newOnes);
    for (const auto& name : folder.names()) {
      ASSERT_TRUE(name == "a.qzl" || name.front() == '.') << name;
    }
    if (through) break;
  }
  EXPECT_GT(oldOnes, 5);
  EXPECT_GT(newOnes, 1);
  SafeFile::write(file, "what was left behind is in nobody's way");
  EXPECT_EQ(bytesOf(file), "what was left behind is in nobody's way");
}

TEST(SafeFileFaults, SomeFaultsAreNoneAndTheFirstReasonIsTold) {
  const std::string old(500, 'o'), wanted(2000, 'n');
  int renames = 0, syncs = 0;
  const std::tuple<std::function<int(int, const std::string&)>, std::string, std::string> cases[] =
      {{[](int number, const std::string& call) {
          return (call == "write" || call == "read") && number % 2 == 0 ? EINTR : 0;
        },
        "", wanted},
       {[&](int, const std::string& call) {  // a folder that knows no sync
          return call == "sync" && ++syncs == 2 ? EINVAL : 0;
        },
        "", wanted},
       {[](int, const std::string& call) {
          return call == "write" ? ENOSPC : call == "remove" ? EIO : 0;
        },
        "No space left on device", old},
       {[&](int, const std::string& call) {
          if (call == "rename") return ++renames, EPERM;
          return renames > 0 && call == "sync" ? EIO : 0;
        },
        "Input/output error. The file is damaged: its old content could not be put back.", old}};
  for (const auto& [fault, reason, left] : cases) {
    TestFolder folder("faults");
    const fs::path file = folder.path / "a.qzl";
    putBytes(file, old);
    TestDisk disk;
    disk.before = fault;
    EXPECT_EQ(reasonOf([&] { SafeFile::write(file, wanted); }), reason);
    EXPECT_EQ(reasonOf([&] { EXPECT_EQ(SafeFile::read(file, 5000), left) << reason; }), "");
  }
  EXPECT_EQ(syncs, 2);
}

}  // namespace
