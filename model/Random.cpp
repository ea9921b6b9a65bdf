#include "model/Random.h"

#include <bit>
#include <cstdint>
#include <random>

namespace RandomNumbers {

namespace {

std::mt19937_64& generator() {
  static std::mt19937_64 numbers;
  return numbers;
}

}  // namespace

Seam<std::function<double()>> next([] {
  return std::uniform_real_distribution<double>{}(generator());
});

void start(double seed) {
  generator().seed(std::bit_cast<std::uint64_t>(seed));
}

}  // namespace RandomNumbers
