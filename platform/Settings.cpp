#include "platform/Settings.h"

#include <QLockFile>
#include <QStandardPaths>
#include <cstdio>
#include <stdexcept>

#include "files/SafeFile.h"
#include "platform/Program.h"
#include "platform/SettingsText.h"

namespace fs = std::filesystem;

namespace Settings {

Seam<Place> place{{}};

namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr int kPatienceMilliseconds = 200;
constexpr mode_t kPrivate = 0600;

/// "Maker\Title" names the folder and the file of the store.
fs::path fileOf(const std::string& application) {
  if (!place->file.empty()) return place->file;
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  const std::size_t backslash = application.find('\\');
  return fs::path(folder.toStdU16String()) / application.substr(0, backslash) /
         (application.substr(backslash + 1) + ".conf");
}

void giveUp(const fs::path& file, const char* reason) {
  if (!place->unwritable)
    std::fprintf(stderr, "%s: The settings cannot be kept (%s: %s); changes hold for this run.\n",
                 Program::kTitle, file.c_str(), reason);
  place->unwritable = true;
}

QString lockOf(const fs::path& file) {
  return QString::fromStdU16String(file.u16string()) + ".lock";
}

/// Errors: std::runtime_error when it cannot be had in time.
void take(QLockFile& lock) {
  const fs::path file = lock.fileName().toStdU16String();
  const fs::file_type type = fs::symlink_status(file).type();
  if (type != fs::file_type::regular && type != fs::file_type::not_found)
    throw std::runtime_error("its lock is not an ordinary file");  // a pipe would be waited for
  if (lock.tryLock(kPatienceMilliseconds)) return;
  throw std::runtime_error(lock.error() == QLockFile::LockFailedError
                               ? "another program or machine holds " + file.string()
                               : file.string() + " cannot be made");
}

/// A lock that nobody gives back is noticed before anything is changed.
void lookAtLock(const fs::path& file) {
  if (std::exchange(place->looked, true)) return;
  QLockFile lock(lockOf(file));
  if (fs::symlink_status(lock.fileName().toStdU16String()).type() != fs::file_type::not_found)
    take(lock);
}

SettingsTexts stored(const fs::path& file) {
  if (fs::symlink_status(file).type() == fs::file_type::not_found) return {};
  return readSettings(QByteArray::fromStdString(SafeFile::read(file, kLargestFile)));
}

void store(const fs::path& file, const QString& path, const QString& text) {
  fs::create_directories(file.parent_path());
  QLockFile lock(lockOf(file));
  take(lock);
  SettingsTexts texts = stored(file);
  const auto old = texts.find(path);
  if (old != texts.end() && old->second == text) return;
  texts[path] = text;
  SafeFile::write(file, writeSettings(texts).toStdString(), kPrivate);
}

QString pathOf(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + '/' + QString::fromStdString(key);
}

/// Runs `action` on the user's file; what it throws ends the storing.
template <typename Action>
void onFile(const std::string& application, Action action) {
  fs::path file;
  try {
    file = fileOf(application);
    action(file);
  } catch (const std::exception& error) {
    giveUp(file, error.what());
  }
}

}  // namespace

std::string application() {
  return std::string(Program::kMaker) + "\\" + Program::kTitle;
}

std::string get(const std::string& application, const std::string& section, const std::string& key,
                const std::string& otherwise) {
  SettingsTexts texts;
  onFile(application, lookAtLock);
  onFile(application, [&](const fs::path& file) { texts = stored(file); });
  const QString path = pathOf(section, key);
  const auto kept = place->kept.find(path), found = texts.find(path);
  if (kept != place->kept.end()) return kept->second.toStdString();
  return found == texts.end() ? otherwise : found->second.toStdString();
}

void save(const std::string& application, const std::string& section, const std::string& key,
          const std::string& value) {
  const QString path = pathOf(section, key), text = QString::fromStdString(value);
  if (!place->unwritable)
    onFile(application, [&](const fs::path& file) { store(file, path, text); });
  if (place->unwritable) place->kept[path] = text;
}

}  // namespace Settings
