#include "viewer/HelpTables.h"

#include <QStringDecoder>
#include <QtEndian>
#include <algorithm>

namespace HelpTables {

namespace {

constexpr qsizetype kDword = 4;

/// The caller has made sure that the number lies inside.
template <class Number>
Number numberAt(const QByteArray& bytes, qsizetype at) {
  return qFromLittleEndian<Number>(bytes.constData() + at);
}

QString zeroEnded(const QByteArray& bytes) {
  const qsizetype end = bytes.indexOf('\0');
  return text(end < 0 ? bytes : bytes.first(end));
}

}  // namespace

QString text(const QByteArray& bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = utf8(bytes);
  return utf8.hasError() ? QString::fromLatin1(bytes) : decoded;
}

System readSystem(const QByteArray& system) {
  System result;
  QString* const texts[] = {&result.contentsFile, &result.indexFile, &result.defaultPage,
                            &result.title};
  for (qsizetype at = kDword; at + kDword <= system.size();) {
    const auto code = numberAt<quint16>(system, at);
    const auto length = numberAt<quint16>(system, at + 2);
    at += kDword;
    if (code < std::size(texts)) *texts[code] = zeroEnded(system.mid(at, length));
    at += length;
  }
  return result;
}

QHash<quint32, QString> readTopics(const QByteArray& ivb, const QByteArray& strings) {
  QHash<quint32, QString> topics;
  if (ivb.size() < kDword) return topics;
  const qsizetype end =
      std::min<qsizetype>(ivb.size(), kDword + qsizetype{numberAt<quint32>(ivb, 0)});
  for (qsizetype at = kDword; at + 2 * kDword <= end; at += 2 * kDword) {
    const auto offset = numberAt<quint32>(ivb, at + kDword);
    if (offset < strings.size())
      topics.insert(numberAt<quint32>(ivb, at), zeroEnded(strings.mid(offset)));
  }
  return topics;
}

}  // namespace HelpTables
