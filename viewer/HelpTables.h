#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

/// The tables that a compiled help file carries beside its pages. All numbers are little-endian.
namespace HelpTables {

/// From "/#SYSTEM": a 32-bit version, then records of a 16-bit code, a 16-bit length and the data.
/// Texts end at their first zero byte. What the table does not tell is empty.
struct System {
  QString contentsFile;  ///< code 0
  QString indexFile;     ///< code 1
  QString defaultPage;   ///< code 2
  QString title;         ///< code 3
};
System readSystem(const QByteArray& system);

/// From "/#IVB" and "/#STRINGS": the page of each topic number. The first table has the 32-bit size
/// of its payload, then pairs of a 32-bit topic number and a 32-bit offset into the second, where a
/// zero-ended text stands. Pairs that point outside are left out.
QHash<quint32, QString> readTopics(const QByteArray& ivb, const QByteArray& strings);

/// Bytes as text: UTF-8 where they are valid UTF-8, else Latin-1.
QString text(const QByteArray& bytes);

}  // namespace HelpTables
