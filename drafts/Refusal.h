#pragma once

#include <stdexcept>

namespace puzzle {

/// The answer is no: a file refused, a shape that is no puzzle. what() is a text for the maker.
struct Refusal : std::runtime_error {
  using runtime_error::runtime_error;
};

}  // namespace puzzle
