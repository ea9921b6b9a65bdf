#pragma once

#include <functional>

#include "seams/Seam.h"

/// The program's one generator of random numbers.
namespace RandomNumbers {

/// A uniform number in [0, 1).
extern Seam<std::function<double()>> next;

/// Starts the generator behind it anew from a number.
void start(double seed);

}  // namespace RandomNumbers
