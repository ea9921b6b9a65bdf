#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>

#include "seams/Seam.h"

/// The help viewer, a program of its own beside this one.
namespace HelpProcess {

/// Shows a compiled help file in the viewer: its start page, or the page of a topic number. The
/// viewer lives on its own: it can be used beside a modal dialog, and neither program waits for the
/// other or ends with it. False when the viewer could not be started.
bool show(const std::filesystem::path& file, int topic = 0);

/// Starts a program that goes its own way.
extern Seam<std::function<bool(const QString& program, const QStringList& arguments)>> Start;

}  // namespace HelpProcess
