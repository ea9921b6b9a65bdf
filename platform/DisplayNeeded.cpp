#include "platform/DisplayNeeded.h"

#include <unistd.h>

#include <QString>
#include <QtGlobal>
#include <cstdio>
#include <string>

namespace {

const char* program = "";
QtMessageHandler before = nullptr;

std::string reason() {
  std::string settings;
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (const QByteArray value = qgetenv(variable); !value.isEmpty())
      settings += std::string(settings.empty() ? "" : " ") + variable + "=" + value.toStdString();
  if (!settings.empty()) return "No window can be opened with " + settings + ".";
  return "There is no display to open a window on: DISPLAY and WAYLAND_DISPLAY are not set.";
}

/// What the toolkit says on the way to its failure says nothing to a player.
void listen(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg) {
    std::fprintf(stderr, "%s: %s\n", program, reason().c_str());
    ::_exit(1);
  }
  const bool onTheWay = QString::fromLatin1(context.category).startsWith("qt.qpa");
  if (!onTheWay && before) before(type, context, text);
}

}  // namespace

DisplayNeeded::DisplayNeeded(const char* name) {
  program = name;
  before = qInstallMessageHandler(listen);
}

DisplayNeeded::~DisplayNeeded() {
  qInstallMessageHandler(before);
}
