#include "tour/ManagerBarrier.h"

#include <QElapsedTimer>
#include <QThread>

#include "script/Script.h"

// After Qt's headers, since its macros would change them.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

constexpr int kPatience = 30'000;   // milliseconds
constexpr unsigned long kLook = 1;  // milliseconds between two looks

Display* xlib(void* display) {
  return static_cast<Display*>(display);
}

Atom atom(Display* display, const char* name) {
  return XInternAtom(display, name, False);
}

bool hasProperty(Display* display, Window window, const char* name) {
  Atom type = None;
  int format = 0;
  unsigned long items = 0, left = 0;
  unsigned char* value = nullptr;
  XGetWindowProperty(display, window, atom(display, name), 0, 1, False, AnyPropertyType, &type,
                     &format, &items, &left, &value);
  if (value) XFree(value);
  return type != None;
}

}  // namespace

ManagerBarrier::ManagerBarrier(void* display)
    : display_(display),
      window_(XCreateSimpleWindow(xlib(display), DefaultRootWindow(xlib(display)), 0, 0, 1, 1, 0, 0,
                                  0)) {}

ManagerBarrier::~ManagerBarrier() {
  XDestroyWindow(xlib(display_), window_);
}

void ManagerBarrier::pass() {
  Display* display = xlib(display_);
  const Window root = DefaultRootWindow(display);
  if (!hasProperty(display, root, "_NET_SUPPORTING_WM_CHECK")) return;
  XDeleteProperty(display, window_, atom(display, "_NET_FRAME_EXTENTS"));
  XEvent question{};
  question.xclient.type = ClientMessage;
  question.xclient.window = window_;
  question.xclient.message_type = atom(display, "_NET_REQUEST_FRAME_EXTENTS");
  question.xclient.format = 32;
  XSendEvent(display, root, False, SubstructureRedirectMask | SubstructureNotifyMask, &question);
  QElapsedTimer clock;
  clock.start();
  while (!answered()) {
    if (clock.hasExpired(kPatience)) throw Script::Error("The window manager does not answer");
    QThread::msleep(kLook);
  }
}

bool ManagerBarrier::answered() const {
  return hasProperty(xlib(display_), window_, "_NET_FRAME_EXTENTS");
}
