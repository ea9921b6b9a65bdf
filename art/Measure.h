#pragma once

#include <string>

#include "art/Colour.h"

namespace pictures {

/// The two textures that are hardest to tell apart by their mean colours.
struct ClosestPair {
  int first = 0, second = 0;
  double distance = 0;  ///< CIEDE2000 between the mean colours as these eyes see them
};
/// Among the twelve pieces, or also the empty cell. Means are taken from the textures' pixels.
ClosestPair closestPair(Sight sight, bool withEmptyCell);

/// The mean colour of a texture's 64 x 64 pixels.
Lab measuredMean(int texture);

/// A table of mean colours and closest pairs for a person to read.
std::string distanceReport();

}  // namespace pictures
