#include "tour/DisplayErrors.h"

#include <xcb/xcb.h>

#include <QCoreApplication>
#include <iostream>

namespace {

std::atomic<int> warningsHeard = 0;
QtMessageHandler printMessage = nullptr;

constexpr int kBadWindow = 3;  // of the X protocol

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtWarningMsg || type == QtCriticalMsg) ++warningsHeard;
  printMessage(type, context, text);
}

}  // namespace

DisplayErrors::DisplayErrors() {
  warningsHeard = 0;
  printMessage = qInstallMessageHandler(hear);
  qApp->installNativeEventFilter(this);
}

DisplayErrors::~DisplayErrors() {
  qApp->removeNativeEventFilter(this);
  qInstallMessageHandler(printMessage);
}

int DisplayErrors::warnings() const {
  return warningsHeard;
}

/// The first byte of what an X server sends is the event's kind; an error's is 0.
bool DisplayErrors::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  const auto* error = static_cast<const xcb_generic_error_t*>(message);
  if (error->response_type != 0) return false;
  if (error->error_code == kBadWindow && error->major_code == XCB_TRANSLATE_COORDINATES) {
    ++lookupsInVain_;
    return false;
  }
  ++serverErrors_;
  std::cerr << "X error " << int{error->error_code} << " of request " << int{error->major_code}
            << '.' << error->minor_code << std::endl;
  return false;
}
