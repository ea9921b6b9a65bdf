#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <fstream>
#include <string>

/// A running program, ended with the object.
class Running {
 public:
  explicit Running(const char* program, const char* argument = nullptr) : pid_(fork()) {
    if (pid_ == 0) {
      execl(program, program, argument, nullptr);
      _exit(127);
    }
  }
  ~Running() {
    kill(pid_, SIGTERM);
    goOn();
    waitpid(pid_, nullptr, 0);
  }
  Running(Running&&) = delete;

  double megabytes() const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) / 1024;
    return 0;
  }

  /// Seconds of processor time so far, of all threads.
  double processorTime() const {
    clockid_t clock = 0;
    timespec time{};
    clock_getcpuclockid(pid_, &clock);
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
  }

  void pause() const { kill(pid_, SIGSTOP); }
  void goOn() const { kill(pid_, SIGCONT); }

 private:
  pid_t pid_;
};
