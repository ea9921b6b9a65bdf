#pragma once

#include <exception>

/// Runs a step whose failure must not keep the next ones from running: an exception ends here.
template <class Step>
void attempt(Step step) {
  try {
    step();
  } catch (const std::exception&) {
  }
}
