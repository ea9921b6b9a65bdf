#include "opener/RunningGame.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::uint32_t kMost = 4096;        // of a property, in 32-bit units
constexpr std::uint32_t kSourceIsPager = 2;  // the player asked for it
constexpr std::string_view kClass{"quinzolith\0quinzolith\0", 22};

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr), xcb_disconnect) {
    if (xcb_connection_has_error(connection_.get())) return;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
  }

  /// The windows that the manager manages, the topmost last.
  std::vector<xcb_window_t> windows() const {
    const std::string bytes = property(root_, atom("_NET_CLIENT_LIST_STACKING"));
    std::vector<xcb_window_t> result(bytes.size() / sizeof(xcb_window_t));
    std::copy_n(bytes.data(), result.size() * sizeof(xcb_window_t),
                reinterpret_cast<char*>(result.data()));
    return result;
  }

  bool isGames(xcb_window_t window) const { return property(window, XCB_ATOM_WM_CLASS) == kClass; }

  void activate(xcb_window_t window) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = kSourceIsPager;
    xcb_send_event(connection_.get(), 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_.get());
  }

 private:
  xcb_atom_t atom(std::string_view name) const {
    const auto cookie =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection_.get(), cookie, nullptr), std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  std::string property(xcb_window_t window, xcb_atom_t name) const {
    const auto cookie =
        xcb_get_property(connection_.get(), 0, window, name, XCB_ATOM_ANY, 0, kMost);
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(connection_.get(), cookie, nullptr), std::free);
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

  Connection connection_;
  xcb_window_t root_ = XCB_WINDOW_NONE;
};

}  // namespace

bool RunningGame::raise() {
  const Display display;
  const auto windows = display.windows();
  const auto games = std::find_if(windows.rbegin(), windows.rend(),
                                  [&](xcb_window_t window) { return display.isGames(window); });
  if (games == windows.rend()) return false;
  display.activate(*games);
  return true;
}
