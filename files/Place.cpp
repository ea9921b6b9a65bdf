#include "files/Place.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <deque>
#include <stdexcept>
#include <utility>

#include "files/SafeFile.h"

namespace fs = std::filesystem;

namespace {

constexpr int kMostLinks = 40;
constexpr int kFolder = O_PATH | O_DIRECTORY;

/// Walks from folder to folder, one name after the other, and never lets the system follow a link.
class Walk {
 public:
  explicit Walk(const fs::path& file) : folder_(opened(AT_FDCWD, ".", kFolder)) { prepend(file); }

  Place toTheEnd() {
    while (names_.size() > 1) step();
    while (!names_.empty())
      if (auto place = last()) return std::move(*place);
    errno = EISDIR;
    failCall();
  }

 private:
  /// What a link holds stands in its place.
  void prepend(const fs::path& path) {
    if (path.is_absolute()) folder_ = opened(AT_FDCWD, "/", kFolder);
    std::deque<std::string> names;
    for (const fs::path& name : path.relative_path())
      if (name != ".") names.push_back(name.string());
    names_.insert(names_.begin(), names.begin(), names.end());
  }

  void step() {
    const std::string name = next();
    OpenFile entry = opened(folder_.descriptor(), name, O_PATH | O_NOFOLLOW);
    const struct stat status = entry.status();
    if (S_ISLNK(status.st_mode)) {
      follow(entry, status);
    } else if (S_ISDIR(status.st_mode)) {
      folder_ = std::move(entry);
    } else {
      errno = ENOTDIR;
      failCall();
    }
  }

  /// Nothing while the way goes on behind a link.
  std::optional<Place> last() {
    const std::string name = next();
    const bool nameless = name.empty() || name == "..";
    if (nameless) return std::nullopt;
    OpenFile entry(folder_.descriptor(), name, O_PATH | O_NOFOLLOW);
    if (!entry.isOpen() && errno != ENOENT) failCall();
    if (!entry.isOpen()) return Place{std::move(folder_), name, std::nullopt};
    const struct stat status = entry.status();
    if (!S_ISLNK(status.st_mode)) return Place{std::move(folder_), name, status};
    follow(entry, status);
    while (names_.size() > 1) step();
    return std::nullopt;
  }

  void follow(const OpenFile& link, const struct stat& status) {
    if (!isTrusted(status.st_uid) || !isTrusted(folder_.status().st_uid))
      throw std::runtime_error("This is another user's link, which is not followed.");
    if (++links_ > kMostLinks) {
      errno = ELOOP;
      failCall();
    }
    std::array<char, PATH_MAX> text;
    const auto length =
        checkedCall(SafeFile::disk->readLink(link.descriptor(), text.data(), text.size()));
    prepend(std::string(text.data(), static_cast<std::size_t>(length)));
  }

  std::string next() {
    std::string name = std::move(names_.front());
    names_.pop_front();
    return name;
  }

  OpenFile folder_;
  std::deque<std::string> names_;
  int links_ = 0;
};

}  // namespace

bool isTrusted(uid_t owner) {
  return owner == 0 || owner == ::geteuid();
}

Place placeOf(const fs::path& file) {
  return Walk(file).toTheEnd();
}
