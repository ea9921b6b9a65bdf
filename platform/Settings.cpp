#include "platform/Settings.h"

#include <QIODevice>
#include <QSettings>
#include <QUrl>
#include <memory>

#include "platform/Program.h"

namespace Settings {

namespace {

std::string& testFile() {
  static std::string file;
  return file;
}

constexpr qint64 kLargestFile = qint64{1} << 20;
constexpr const char* kPlain = " !\"#$&'()*+,/:;<=>?@[\\]^`{|}";  // in values; else also -._~

QString decoded(const QByteArray& text) {
  return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

bool readTexts(QIODevice& file, QSettings::SettingsMap& texts) {
  QString section;
  for (QByteArray line : file.read(kLargestFile).split('\n')) {
    if (line.endsWith('\r')) line.chop(1);
    const qsizetype equals = line.indexOf('=');
    if (line.startsWith('['))
      section = decoded(line.mid(1, line.indexOf(']') - 1));
    else if (equals > 0)
      texts[section + '/' + decoded(line.left(equals))] = decoded(line.mid(equals + 1));
  }
  return true;
}

bool writeTexts(QIODevice& file, const QSettings::SettingsMap& texts) {
  QString section;
  for (auto text = texts.begin(); text != texts.end(); ++text) {
    if (const QString own = text.key().section('/', 0, 0); own != section) {
      section = own;
      file.write('[' + QUrl::toPercentEncoding(section) + "]\n");
    }
    file.write(QUrl::toPercentEncoding(text.key().section('/', 1)) + '=' +
               QUrl::toPercentEncoding(text.value().toString(), kPlain) + '\n');
  }
  return true;  // a failed write is the file's to tell
}

/// Where the system has no store of its own: "[section]", "key=text", percent-encoded UTF-8. Qt's
/// own format of such files also holds whole Qt objects, whose damage ends the program.
QSettings::Format format() {
#ifdef Q_OS_WIN
  return QSettings::NativeFormat;
#else
  static const QSettings::Format texts =
      QSettings::registerFormat("conf", readTexts, writeTexts, Qt::CaseSensitive);
  return texts;
#endif
}

/// "Maker\Title" names the folder and the file of the store.
std::unique_ptr<QSettings> open(const std::string& application) {
  if (!testFile().empty())
    return std::make_unique<QSettings>(QString::fromStdString(testFile()), format());
  const QString name = QString::fromStdString(application);
  return std::make_unique<QSettings>(format(), QSettings::UserScope, name.section('\\', 0, 0),
                                     name.section('\\', 1));
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
