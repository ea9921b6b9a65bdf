#include "solver/Threads.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace solver {

namespace {

constexpr unsigned kMostThreads = 16;

/// Tasks that threads take one by one.
class Tasks {
 public:
  Tasks(std::size_t count, const std::function<void(std::size_t)>& task)
      : count_(count), task_(task) {}

  void work() noexcept {
    try {
      for (std::size_t i = next_++; i < count_; i = next_++) task_(i);
    } catch (...) {
      next_ = count_;
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
    }
  }
  /// After all threads have ended.
  void rethrow() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  const std::size_t count_;
  const std::function<void(std::size_t)>& task_;
  std::atomic<std::size_t> next_ = 0;
  std::mutex mutex_;
  std::exception_ptr failure_;
};

}  // namespace

unsigned threadsOfThisMachine() {
  return std::clamp(std::thread::hardware_concurrency(), 1u, kMostThreads);
}

void inParallel(unsigned threads, std::size_t tasks, const std::function<void(std::size_t)>& task) {
  Tasks shared(tasks, task);
  {
    std::vector<std::jthread> others;
    try {
      for (std::size_t i = 1; i < std::min<std::size_t>(threads, tasks); ++i)
        others.emplace_back([&] { shared.work(); });
    } catch (const std::system_error&) {  // fewer do as well
    }
    shared.work();
  }
  shared.rethrow();
}

}  // namespace solver
