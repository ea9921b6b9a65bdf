#include "platform/Screen.h"

#include <xcb/xcb.h>

#include <QtGui/qguiapplication_platform.h>
#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace Screen {

namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPtr = std::unique_ptr<Reply, Free>;

/// Window managers that follow the freedesktop conventions name a window of their own in this
/// property of the root window.
bool rootNamesManager(xcb_connection_t* connection) {
  constexpr std::string_view name = "_NET_SUPPORTING_WM_CHECK";
  const ReplyPtr<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 1, name.size(), name.data()), nullptr));
  if (!atom || atom->atom == XCB_ATOM_NONE) return false;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  const ReplyPtr<xcb_get_property_reply_t> property(xcb_get_property_reply(
      connection, xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_WINDOW, 0, 1),
      nullptr));
  return property && property->type != XCB_ATOM_NONE;
}

}  // namespace

Seam<std::function<int(const QWidget&)>> bitsPerPixel([](const QWidget& window) {
  const QScreen* screen = window.screen();
  return screen ? screen->depth() : 24;
});

bool hasWindowManager() {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return !x11 || !x11->connection() || rootNamesManager(x11->connection());
}

}  // namespace Screen
