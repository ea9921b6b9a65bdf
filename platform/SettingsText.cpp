#include "platform/SettingsText.h"

#include <QUrl>

namespace {

constexpr const char* kPlain = " !\"#$&'()*+,/:;<=>?@[\\]^`{|}";  // in values; else also -._~

QString decoded(const QByteArray& text) {
  return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

}  // namespace

SettingsTexts readSettings(const QByteArray& bytes) {
  SettingsTexts texts;
  QString section;
  for (QByteArray line : bytes.split('\n')) {
    if (line.endsWith('\r')) line.chop(1);
    const qsizetype equals = line.indexOf('=');
    if (line.startsWith('['))
      section = decoded(line.mid(1, line.indexOf(']') - 1));
    else if (equals > 0)
      texts[section + '/' + decoded(line.left(equals))] = decoded(line.mid(equals + 1));
  }
  return texts;
}

QByteArray writeSettings(const SettingsTexts& texts) {
  QByteArray bytes;
  QString section;
  for (const auto& [path, text] : texts) {
    if (const QString own = path.section('/', 0, 0); own != section) {
      section = own;
      bytes += '[' + QUrl::toPercentEncoding(section) + "]\n";
    }
    bytes += QUrl::toPercentEncoding(path.section('/', 1)) + '=' +
             QUrl::toPercentEncoding(text, kPlain) + '\n';
  }
  return bytes;
}
