#include "platform/Settings.h"

#include <QSettings>
#include <memory>

#include "platform/Program.h"

namespace Settings {

namespace {

std::string& testFile() {
  static std::string file;
  return file;
}

/// "Maker\Title" names the folder and the file of the store.
std::unique_ptr<QSettings> open(const std::string& application) {
  if (!testFile().empty())
    return std::make_unique<QSettings>(QString::fromStdString(testFile()), QSettings::IniFormat);
  const QString name = QString::fromStdString(application);
  return std::make_unique<QSettings>(name.section('\\', 0, 0), name.section('\\', 1));
}

QString path(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + '/' + QString::fromStdString(key);
}

}  // namespace

std::string application() {
  return std::string(Program::kMaker) + "\\" + Program::kTitle;
}

std::string get(const std::string& application, const std::string& section, const std::string& key,
                const std::string& otherwise) {
  return open(application)
      ->value(path(section, key), QString::fromStdString(otherwise))
      .toString()
      .toStdString();
}

void save(const std::string& application, const std::string& section, const std::string& key,
          const std::string& value) {
  open(application)->setValue(path(section, key), QString::fromStdString(value));
}

void useFile(const std::string& file) {
  testFile() = file;
}

}  // namespace Settings
