#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

/// Makes a claim of GoogleTest that does not hold end the program at once: to a fuzzer that is a
/// crash. Call it before the first claim.
inline void stopAtBrokenClaims() {
  GTEST_FLAG_SET(break_on_failure, true);
}

inline std::string textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}
