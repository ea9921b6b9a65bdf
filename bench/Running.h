#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

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
  Running(Running&&) = delete;

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
