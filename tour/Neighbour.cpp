#include "tour/Neighbour.h"

#include "script/Script.h"

// After Qt's headers, since its macros would change them.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

constexpr int kWidth = 240, kHeight = 160;

}  // namespace

struct Neighbour::Connection {
  Display* display = XOpenDisplay(nullptr);
  Window window = 0;
};

Neighbour::Neighbour() : connection_(new Connection) {
  Display* display = connection_->display;
  if (!display) {
    delete connection_;
    throw Script::Error("There is no X server for another program.");
  }
  const Window root = DefaultRootWindow(display);
  connection_->window = XCreateSimpleWindow(display, root, 0, 0, kWidth, kHeight, 0, 0, 0x806040);
  XStoreName(display, connection_->window, "Another program");
  XSelectInput(display, connection_->window, StructureNotifyMask);
  XMapRaised(display, connection_->window);
  XFlush(display);
}

Neighbour::~Neighbour() {
  XCloseDisplay(connection_->display);
  delete connection_;
}

QPointF Neighbour::middle() {
  Display* display = connection_->display;
  Script::waitFor("the other program's window", [this, display] {
    XWindowAttributes state;
    return XGetWindowAttributes(display, connection_->window, &state) != 0 &&
           state.map_state == IsViewable;
  });
  int x = 0, y = 0;
  Window child = 0;
  XTranslateCoordinates(display, connection_->window, DefaultRootWindow(display), kWidth / 2,
                        kHeight / 2, &x, &y, &child);
  return {static_cast<double>(x), static_cast<double>(y)};
}
