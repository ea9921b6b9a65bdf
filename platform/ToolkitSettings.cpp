#include "platform/ToolkitSettings.h"

#include <QSettings>

void keepToolkitFromStoring() {
  // Nothing can lie below a device, so what the toolkit stores there is lost without a word.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}
