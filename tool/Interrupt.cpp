#include "tool/Interrupt.h"

#include <atomic>
#include <csignal>

namespace puzzle {

namespace {

std::atomic<bool> interrupted = false;  // a counting thread may get the signal
static_assert(std::atomic<bool>::is_always_lock_free);

void note(int signal) {
  interrupted = true;
  std::signal(signal, SIG_DFL);
}

}  // namespace

Interrupt::Interrupt() {
  interrupted = false;
  std::signal(SIGINT, note);
}

Interrupt::~Interrupt() {
  std::signal(SIGINT, SIG_DFL);
}

bool Interrupt::asked() {
  return interrupted;
}

}  // namespace puzzle
