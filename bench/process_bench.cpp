// Start, memory and processor use of the whole program, beside a bare window, on an X server.
// Usage: quinzolith-bench-process BARE_WINDOW GAME
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kStarts = 7;
constexpr Seconds kWatched{10};
constexpr Seconds kFocus{1};  // in which the window manager hands the keys over

/// The X server: what is on it, and a hand on pointer and keys.
class Server {
 public:
  ~Server() { XCloseDisplay(display_); }

  /// How many windows can be seen whose title begins with the text.
  int visible(const std::string& title) { return count(DefaultRootWindow(display_), title); }

  void key(KeySym sym) {
    const KeyCode code = XKeysymToKeycode(display_, sym);
    XTestFakeKeyEvent(display_, code, True, 0);
    XTestFakeKeyEvent(display_, code, False, 0);
    XSync(display_, False);
  }
  void move(int x, int y) {
    XTestFakeMotionEvent(display_, -1, x, y, 0);
    XSync(display_, False);
  }
  void click() {
    XTestFakeButtonEvent(display_, 1, True, 0);
    XTestFakeButtonEvent(display_, 1, False, 0);
    XSync(display_, False);
  }
  int width() const { return DisplayWidth(display_, DefaultScreen(display_)); }
  int height() const { return DisplayHeight(display_, DefaultScreen(display_)); }

 private:
  int count(Window window, const std::string& title) {
    int found = 0;
    char* name = nullptr;
    XWindowAttributes attributes;
    if (XFetchName(display_, window, &name) && name) {
      if (std::string(name).starts_with(title) &&
          XGetWindowAttributes(display_, window, &attributes) && attributes.map_state == IsViewable)
        ++found;
      XFree(name);
    }
    Window root = 0, parent = 0, *children = nullptr;
    unsigned number = 0;
    if (XQueryTree(display_, window, &root, &parent, &children, &number) && children) {
      for (unsigned i = 0; i < number; ++i) found += count(children[i], title);
      XFree(children);
    }
    return found;
  }

  Display* display_ = XOpenDisplay(nullptr);
};

/// Windows come and go while we look; that is no error.
int ignoreErrors(Display*, XErrorEvent*) {
  return 0;
}

void waitFor(Server& server, const std::string& title, bool shown = true) {
  while ((server.visible(title) > 0) != shown)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

/// A running program, ended with the object.
class Running {
 public:
  explicit Running(const char* program) : pid_(fork()) {
    if (pid_ == 0) {
      execl(program, program, nullptr);
      _exit(127);
    }
  }
  ~Running() {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

  double megabytes() const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) / 1024;
    return 0;
  }

  /// Seconds of processor time so far.
  double processorTime() const {
    std::ifstream stat("/proc/" + std::to_string(pid_) + "/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), {});
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string skipped;
    for (int i = 0; i < 11; ++i) fields >> skipped;
    double user = 0, system = 0;
    fields >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
  }

 private:
  pid_t pid_;
};

struct Start {
  double milliseconds, megabytes;
};

Start startOnce(Server& server, const char* program, const std::string& title) {
  const auto begin = Clock::now();
  Running running(program);
  waitFor(server, title);
  const double taken = Seconds(Clock::now() - begin).count() * 1e3;
  std::this_thread::sleep_for(std::chrono::milliseconds(300));  // all of it has been painted
  return {taken, running.megabytes()};
}

Start medianStart(std::vector<Start> starts) {
  const auto middle = starts.begin() + static_cast<std::ptrdiff_t>(starts.size() / 2);
  std::nth_element(starts.begin(), middle, starts.end(),
                   [](const Start& a, const Start& b) { return a.milliseconds < b.milliseconds; });
  return *middle;
}

void compareStarts(Server& server, const char* bare, const char* game, double& bareMegabytes) {
  std::vector<Start> bares, games;
  for (int i = 0; i < kStarts; ++i) {
    bares.push_back(startOnce(server, bare, "Bare window"));
    waitFor(server, "Bare window", false);
    games.push_back(startOnce(server, game, "Quinzolith"));
    waitFor(server, "Quinzolith", false);
  }
  const Start b = medianStart(bares), g = medianStart(games);
  bareMegabytes = b.megabytes;
  std::printf("start to first visible window: bare %.0f ms, game %.0f ms, ratio %.2f (aim 1.5)\n",
              b.milliseconds, g.milliseconds, g.milliseconds / b.milliseconds);
  std::printf("resident at the splash window: bare %.1f MiB, game %.1f MiB, ratio %.2f (aim 2)\n",
              b.megabytes, g.megabytes, g.megabytes / b.megabytes);
}

template <class During>
double percentOfACore(const Running& game, During during) {
  const double before = game.processorTime();
  const auto begin = Clock::now();
  while (Clock::now() - begin < kWatched) during();
  return 100 * (game.processorTime() - before) / Seconds(Clock::now() - begin).count();
}

void watchPlaying(Server& server, const char* program, double bareMegabytes) {
  Running game(program);
  waitFor(server, "Quinzolith");
  std::this_thread::sleep_for(kFocus);
  server.key(XK_Return);
  waitFor(server, "Select Quinzolith Puzzle");
  std::this_thread::sleep_for(kFocus);
  server.key(XK_Escape);
  waitFor(server, "Select Quinzolith Puzzle", false);
  const int width = server.width(), height = server.height();
  server.move(width / 2, height / 2);
  std::this_thread::sleep_for(std::chrono::seconds(2));
  std::printf("resident in play, before a tune: %.1f MiB, ratio %.2f (aim 2)\n", game.megabytes(),
              game.megabytes() / bareMegabytes);
  const auto rest = [] { std::this_thread::sleep_for(std::chrono::milliseconds(50)); };
  std::printf("play window open, mouse still: %.2f %% of a core (aim below 0.5)\n",
              percentOfACore(game, rest));

  for (int y = 60; y < height; y += 9) {  // somewhere in the tray this picks a piece up
    server.move(width / 10, y);
    server.click();
  }
  int step = 0;
  const double carrying = percentOfACore(game, [&] {
    const double turn = ++step / 40.0;
    server.move(static_cast<int>(width * (0.6 + 0.15 * std::cos(turn))),
                static_cast<int>(height * (0.5 + 0.2 * std::sin(turn))));
    std::this_thread::sleep_for(std::chrono::milliseconds(8));
  });
  std::printf("a piece in the air, mouse moving at 125 Hz: %.2f %% of a core (aim at most 5)\n",
              carrying);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("Usage: quinzolith-bench-process BARE_WINDOW GAME\n", stderr);
    return 2;
  }
  XSetErrorHandler(ignoreErrors);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  Server server;
  double bareMegabytes = 1;
  compareStarts(server, argv[1], argv[2], bareMegabytes);
  watchPlaying(server, argv[2], bareMegabytes);
  return 0;
}
