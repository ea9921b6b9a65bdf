#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// The X server: what is on it, and a hand on pointer and keys.
class Server {
 public:
  ~Server() { XCloseDisplay(display_); }

  /// How many windows can be seen whose title begins with the text.
  int visible(const std::string& title) {
    return static_cast<int>(seen(DefaultRootWindow(display_), title).size());
  }
  /// Whether such a window shows anything but one colour in the rows through its middle.
  bool painted(const std::string& title) {
    for (const Window window : seen(DefaultRootWindow(display_), title))
      if (manyColours(window)) return true;
    return false;
  }

  /// Presses the keys one after the other, then lets all go.
  void keys(std::initializer_list<KeySym> symbols) {
    for (const Bool pressed : {True, False})
      for (const KeySym symbol : symbols)
        XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, symbol), pressed, 0);
    XSync(display_, False);
  }
  void move(int x, int y) {
    XTestFakeMotionEvent(display_, -1, x, y, 0);
    XSync(display_, False);
  }
  /// Presses the left button, or lets it go.
  void button(bool down) {
    XTestFakeButtonEvent(display_, 1, down ? True : False, 0);
    XSync(display_, False);
  }
  void click() {
    button(true);
    button(false);
  }
  /// Where the pointer is.
  std::pair<int, int> pointer() {
    Window root = 0, child = 0;
    int x = 0, y = 0, inX = 0, inY = 0;
    unsigned buttons = 0;
    XQueryPointer(display_, DefaultRootWindow(display_), &root, &child, &x, &y, &inX, &inY,
                  &buttons);
    return {x, y};
  }
  /// The pixels in the middle of the screen, without the pointer.
  std::string middle(int width, int height) {
    XImage* image = XGetImage(display_, DefaultRootWindow(display_), (this->width() - width) / 2,
                              (this->height() - height) / 2, static_cast<unsigned>(width),
                              static_cast<unsigned>(height), AllPlanes, ZPixmap);
    std::string pixels(image->data, static_cast<std::size_t>(image->bytes_per_line * height));
    XDestroyImage(image);
    return pixels;
  }
  /// The box round all pixels that differ right of a column when the pointer has gone from one
  /// point to the other.
  std::pair<int, int> sizeOfChange(std::pair<int, int> from, std::pair<int, int> to, int column,
                                   std::chrono::duration<double> answer) {
    move(from.first, from.second);
    std::this_thread::sleep_for(answer);
    XImage* before = all();
    move(to.first, to.second);
    std::this_thread::sleep_for(answer);
    XImage* after = all();
    int left = width(), right = column, top = height(), bottom = 0;
    for (int y = 0; y < height(); ++y)
      for (int x = column; x < width(); ++x) {
        if (XGetPixel(before, x, y) == XGetPixel(after, x, y)) continue;
        left = std::min(left, x), right = std::max(right, x + 1);
        top = std::min(top, y), bottom = std::max(bottom, y + 1);
      }
    XDestroyImage(before);
    XDestroyImage(after);
    return {right - left, bottom - top};
  }
  int width() const { return DisplayWidth(display_, DefaultScreen(display_)); }
  int height() const { return DisplayHeight(display_, DefaultScreen(display_)); }

 private:
  XImage* all() {
    return XGetImage(display_, DefaultRootWindow(display_), 0, 0, static_cast<unsigned>(width()),
                     static_cast<unsigned>(height()), AllPlanes, ZPixmap);
  }
  std::vector<Window> seen(Window window, const std::string& title) {
    std::vector<Window> found;
    char* name = nullptr;
    XWindowAttributes attributes;
    if (XFetchName(display_, window, &name) && name) {
      if (std::string(name).starts_with(title) &&
          XGetWindowAttributes(display_, window, &attributes) && attributes.map_state == IsViewable)
        found.push_back(window);
      XFree(name);
    }
    Window root = 0, parent = 0, *children = nullptr;
    unsigned number = 0;
    if (XQueryTree(display_, window, &root, &parent, &children, &number) && children) {
      for (unsigned i = 0; i < number; ++i)
        for (const Window inner : seen(children[i], title)) found.push_back(inner);
      XFree(children);
    }
    return found;
  }

  bool manyColours(Window window) {
    constexpr int kRows = 16;
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display_, window, &attributes)) return false;
    XImage* rows = XGetImage(display_, window, 0, (attributes.height - kRows) / 2,
                             static_cast<unsigned>(attributes.width), kRows, AllPlanes, ZPixmap);
    if (!rows) return false;
    const auto size = static_cast<std::size_t>(rows->bytes_per_line * kRows);
    const bool many = !std::equal(rows->data + 4, rows->data + size, rows->data);
    XDestroyImage(rows);
    return many;
  }

  Display* display_ = XOpenDisplay(nullptr);
};

/// Windows come and go while we look; that is no error.
inline int ignoreErrors(Display*, XErrorEvent*) {
  return 0;
}

inline void waitFor(Server& server, const std::string& title, bool shown = true) {
  while ((server.visible(title) > 0) != shown)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

inline void waitForPaint(Server& server, const std::string& title) {
  while (!server.painted(title)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}
