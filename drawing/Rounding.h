#pragma once

/// The nearest whole number, halves to the even neighbour. All rounding of the program happens
/// here.
int nearest(double value);
