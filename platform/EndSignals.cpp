#include "platform/EndSignals.h"

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <csignal>
#include <stdexcept>

#include "files/HeldSignals.h"

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};
constexpr int kCodeOfSignal = 128;
constexpr suseconds_t kPatience = 900'000, kUntilSaved = 20'000;  // microseconds

volatile std::sig_atomic_t code = 0;
std::array<int, 2> wires{-1, -1};  // to read from, to write to

void setAlarm(suseconds_t microseconds) {
  const itimerval time{{}, {0, microseconds}};
  ::setitimer(ITIMER_REAL, &time, nullptr);
}

void endInOrder(int signal) {
  code = kCodeOfSignal + signal;
  [[maybe_unused]] const ssize_t written = ::write(wires[1], "", 1);
  setAlarm(kPatience);
}

void endNow(int) {
  if (HeldSignals::any())
    setAlarm(kUntilSaved);
  else
    ::_exit(code);
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  ::sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal) {
  struct sigaction action {};
  ::sigaction(signal, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

int readableWire() {
  if (::pipe2(wires.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    throw std::runtime_error("There is no pipe to be had.");
  return wires[0];
}

}  // namespace

/// What was written is never read: so the loop that runs next is told again, whatever was told to a
/// loop that has not started yet.
EndSignals::EndSignals() : notifier_(readableWire(), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, [] { QCoreApplication::exit(code); });
  handle(SIGALRM, endNow);
  for (const int signal : kSignals)
    if (signal != SIGHUP || !isIgnored(signal)) handle(signal, endInOrder);
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals)
    if (!isIgnored(signal)) handle(signal, SIG_DFL);
  setAlarm(0);
  handle(SIGALRM, SIG_DFL);
  for (const int wire : wires) ::close(wire);
}
