#include "tour/Memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

Memory Memory::trimmed() {
  malloc_trim(0);
  Memory now;
  std::ifstream rollup("/proc/self/smaps_rollup");
  for (std::string line; std::getline(rollup, line);) {
    if (line.starts_with("Rss:")) now.resident = std::stol(line.substr(4));
    if (line.starts_with("Anonymous:")) now.anonymous = std::stol(line.substr(10));
  }
  return now;
}
