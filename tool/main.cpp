#include <iostream>

#include "tool/CommandLine.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::error_code none;
  const auto program = std::filesystem::canonical("/proc/self/exe", none);
  puzzle::Environment environment{
      std::cin, std::cout, std::cerr,
      (none ? std::filesystem::absolute(argv[0]) : program).parent_path()};
  return puzzle::run({argv + 1, argv + argc}, environment);
}
