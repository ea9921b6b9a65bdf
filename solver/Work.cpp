#include "solver/Work.h"

namespace solver {

std::string decimal(Count count) {
  std::string digits;
  do {
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(count % 10)));
    count /= 10;
  } while (count != 0);
  return digits;
}

}  // namespace solver
