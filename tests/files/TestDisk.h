#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include "files/SafeFile.h"
#include "seams/Seam.h"
#include "tests/files/FileBytes.h"

/// The system's own disk calls, counted, small in their transfers, and with a hook in front. The
/// system's own are back when it goes.
class TestDisk {
 public:
  /// Called before each call with its number (from 1) and name ("create" for the opening that makes
  /// a new file); an error number makes it fail.
  std::function<int(int number, const std::string& name)> before;
  int calls = 0;

  TestDisk() : replacement_(SafeFile::disk, countedCalls()) {}
  TestDisk(TestDisk&&) = delete;

 private:
  DiskCalls countedCalls() {
    DiskCalls disk;
    disk.read = [](int file, void* to, std::size_t size, off_t offset) {
      return DiskCalls{}.read(file, to, std::min<std::size_t>(size, 200), offset);
    };
    disk.write = [](int file, const void* from, std::size_t size, off_t offset) {
      return DiskCalls{}.write(file, from, std::min<std::size_t>(size, 150), offset);
    };
    disk.open = [this](int folder, const char* name, int flags, mode_t mode) {
      const bool allowed = allows((flags & O_EXCL) != 0 ? "create" : "open");
      return allowed ? DiskCalls{}.open(folder, name, flags, mode) : -1;
    };
    count(disk.close, "close");
    count(disk.read, "read");
    count(disk.write, "write");
    count(disk.sync, "sync");
    count(disk.truncate, "truncate");
    count(disk.setMode, "setMode");
    count(disk.setOwner, "setOwner");
    count(disk.statusOfOpen, "statusOfOpen");
    count(disk.status, "status");
    count(disk.statusOfLink, "statusOfLink");
    count(disk.readLink, "readLink");
    count(disk.rename, "rename");
    count(disk.remove, "remove");
    count(disk.list, "list");
    return disk;
  }

  bool allows(const std::string& name) {
    ++calls;
    const int error = before ? before(calls, name) : 0;
    if (error != 0) errno = error;
    return error == 0;
  }

  template <typename Result, typename... Arguments>
  void count(std::function<Result(Arguments...)>& call, const std::string& name) {
    call = [this, name, real = call](Arguments... arguments) -> Result {
      if (allows(name)) return real(static_cast<Arguments>(arguments)...);
      const int error = errno;
      if (name == "close")
        real(static_cast<Arguments>(arguments)...);  // as the system does: closed, whatever it says
      errno = error;
      return -1;
    };
  }

  Replacement<DiskCalls> replacement_;
};

/// A folder of its own for a test, empty at the start.
class TestFolder {
 public:
  explicit TestFolder(const std::string& name)
      : path(std::filesystem::temp_directory_path() /
             ("quinzolith-" + name + "-" + std::to_string(::getpid()))) {
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  TestFolder(TestFolder&&) = delete;
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }

  std::set<std::string> names() const {
    std::set<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(path))
      result.insert(entry.path().filename().string());
    return result;
  }

  const std::filesystem::path path;
};

/// The words of the exception that `action` throws; empty when it throws none.
inline std::string reasonOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    return error.what();
  }
  return {};
}
