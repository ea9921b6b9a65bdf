#include "files/HeldSignals.h"

#include <pthread.h>

#include <atomic>
#include <initializer_list>

namespace {

std::atomic<int> alive{0};
static_assert(std::atomic<int>::is_always_lock_free);

}  // namespace

HeldSignals::HeldSignals() {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&held, signal);
  pthread_sigmask(SIG_BLOCK, &held, &before_);
  ++alive;
}

HeldSignals::~HeldSignals() {
  --alive;
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

bool HeldSignals::any() {
  return alive > 0;
}
