#pragma once

/// The nearest whole number, halves to the even neighbour: for sizes of tiles, places of a grid and
/// twips. (Places of the pointer are rounded as the toolkit does, colours as the library does.)
int nearest(double value);
