#include <iostream>

#include "tool/CommandLine.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::error_code none;
  const auto program = std::filesystem::canonical("/proc/self/exe", none);
  puzzle::Environment environment{
      std::cin, std::cout, std::cerr,
      (none ? std::filesystem::absolute(argv[0]) : program).parent_path()};
  const int result = puzzle::run({argv + 1, argv + argc}, environment);
  if (std::cout.flush()) return result;
  std::cerr << "quinzolith-puzzle: The output cannot be written.\n";
  return puzzle::kNo;
}
