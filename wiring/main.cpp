#include <QApplication>
#include <optional>

#include "platform/DisplayNeeded.h"
#include "platform/EndSignals.h"
#include "platform/PendingEvents.h"
#include "platform/Sandbox.h"
#include "wiring/Wiring.h"

namespace {

/// Placing the cursor is possible under X11 only, so it comes first where both are there.
void preferX11() {
  const bool chosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
  if (!chosen && !qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "xcb");
}

}  // namespace

int main(int argc, char** argv) {
  preferX11();
  Sandbox::usePortal();
  std::optional<DisplayNeeded> display("quinzolith");
  QApplication application(argc, argv);
  display.reset();
  const EndSignals onSignal;
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setDesktopFileName("org.kelvo.quinzolith");

  Wiring program;
  program.start();
  if (Form::Count() == 0) return 1;
  const int code = QApplication::exec();
  program.close();
  finishFirstLevelWork();
  return code;
}
