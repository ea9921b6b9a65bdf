#include "tour/EventBarrier.h"

#include <xcb/xcb.h>

#include <QCoreApplication>

#include "script/Script.h"

// After Qt's headers, since its macros would change them.
#include <X11/Xlib.h>

namespace {

constexpr int kPatience = 30'000;             // milliseconds
constexpr std::uint32_t kMark = 0x51756e7aU;  // tells our message from any other

}  // namespace

EventBarrier::EventBarrier() {
  window_.create();
  id_ = window_.winId();
  qApp->installNativeEventFilter(this);
}

EventBarrier::~EventBarrier() {
  qApp->removeNativeEventFilter(this);
}

void EventBarrier::pass(void* display) {
  auto* connection = static_cast<Display*>(display);
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = id_;
  event.xclient.message_type = XInternAtom(connection, "_QUINZOLITH_TOUR", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = kMark;
  XSendEvent(connection, id_, False, NoEventMask, &event);
  XSync(connection, False);
  if (!passed_.tryAcquire(1, kPatience)) throw Script::Error("The program handles no events");
  Script::onScreen([] {});  // what it has read of them is in the toolkit's queue until now
}

bool EventBarrier::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  const auto* event = static_cast<const xcb_client_message_event_t*>(message);
  const bool ours = (event->response_type & 0x7FU) == XCB_CLIENT_MESSAGE && event->window == id_ &&
                    event->data.data32[0] == kMark;
  if (ours) passed_.release();
  return ours;
}
