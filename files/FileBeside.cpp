#include "files/FileBeside.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <random>
#include <sstream>

#include "files/SafeFile.h"

using SafeFile::disk;

namespace {

constexpr int kMostNames = 100;
constexpr int kRandomWords = 4;
constexpr std::time_t kLeftoverAge = 60 * 60;  // seconds; no save takes so long
constexpr const char* kStart = ".quinzolith-";
constexpr const char* kEnd = ".tmp";

std::string unguessableName() {
  static std::random_device random;
  std::ostringstream name;
  name << kStart << std::hex;
  for (int i = 0; i < kRandomWords; ++i) name << random();
  name << kEnd;
  return name.str();
}

[[noreturn]] void failBeside() {
  throw NotBeside(errno, std::generic_category());
}

bool isLeftover(const OpenFile& folder, const std::string& name) {
  if (!name.starts_with(kStart) || !name.ends_with(kEnd)) return false;
  struct stat status {};
  return disk->statusOfLink(folder.descriptor(), name.c_str(), &status) == 0 &&
         S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
         std::time(nullptr) - status.st_mtime > kLeftoverAge;
}

}  // namespace

FileBeside::FileBeside(const Place& target, mode_t mode) : target_(target), file_(create(mode)) {}

FileBeside::~FileBeside() {
  if (!renamed_) disk->remove(target_.folder.descriptor(), name_.c_str());
}

OpenFile FileBeside::create(mode_t mode) {
  for (int tries = 0; tries < kMostNames; ++tries) {
    name_ = unguessableName();
    OpenFile result(target_.folder.descriptor(), name_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
                    mode);
    if (result.isOpen()) return result;
    if (errno == EACCES || errno == EPERM || errno == EROFS) failBeside();
    if (errno != EEXIST) break;
  }
  failCall();
}

void FileBeside::takeName() {
  renamed_ = disk->rename(target_.folder.descriptor(), name_.c_str(), target_.name.c_str()) == 0;
  if (renamed_) return;
  // The folder keeps others' files (EACCES, EPERM) or the target is mounted (EBUSY, EXDEV).
  if (errno == EACCES || errno == EPERM || errno == EBUSY || errno == EXDEV) failBeside();
  failCall();
}

void removeLeftovers(const OpenFile& folder) {
  std::vector<std::string> names;
  if (disk->list(folder.descriptor(), names) < 0) return;
  for (const std::string& name : names)
    if (isLeftover(folder, name)) disk->remove(folder.descriptor(), name.c_str());
}
