#include "viewer/BringToFront.h"

#include <xcb/xcb.h>

#include <QtGui/qguiapplication_platform.h>
#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace {

constexpr std::uint32_t kAskedByUser = 2;

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};

void activateAsUser(xcb_connection_t* connection, xcb_window_t window) {
  constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> atom(xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 1, name.size(), name.data()), nullptr));
  if (!atom || atom->atom == XCB_ATOM_NONE) return;
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = atom->atom;
  event.data.data32[0] = kAskedByUser;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  xcb_send_event(connection, 0, root,
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
  xcb_flush(connection);
}

}  // namespace

void bringToFront(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 && x11->connection())
    activateAsUser(x11->connection(), static_cast<xcb_window_t>(window.winId()));
}
