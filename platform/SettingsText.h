#pragma once

#include <QByteArray>
#include <QString>
#include <map>

/// The texts of a settings file by "section/key".
using SettingsTexts = std::map<QString, QString>;

/// Lines "[section]" and "key=text", percent-encoded UTF-8. Whatever else there is, is passed over.
SettingsTexts readSettings(const QByteArray& bytes);
QByteArray writeSettings(const SettingsTexts& texts);
