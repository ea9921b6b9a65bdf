#include "tool/Interrupt.h"

#include <csignal>

namespace puzzle {

namespace {

volatile std::sig_atomic_t interrupted = 0;

void note(int signal) {
  interrupted = 1;
  std::signal(signal, SIG_DFL);
}

}  // namespace

Interrupt::Interrupt() {
  interrupted = 0;
  std::signal(SIGINT, note);
}

Interrupt::~Interrupt() {
  std::signal(SIGINT, SIG_DFL);
}

bool Interrupt::asked() {
  return interrupted != 0;
}

}  // namespace puzzle
