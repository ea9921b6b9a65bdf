#pragma once

#include "solver/Pin.h"
#include "solver/Work.h"

/// The faster roads to all solutions. Both take the trimmed shape of a frame whose columns are at
/// most 14 cells high.
namespace Roads {

/// Lays the pinned piece first, on each of its places, and scans what is left.
void pinned(const Shape& shape, const PieceSet& supply, const Pin& pin, Delivery& delivery,
            WorkMeter& meter);

/// True when the pieces are all different, all used, and enough for meeting in the middle to pay.
bool canMeet(const Shape& shape, const PieceSet& supply);

/// Meets in the middle: scans the first part of the shape, joins each partial tiling with the
/// profiles of the other part and walks only the roads that end in a solution. With a pin, its
/// piece keeps to its places. False, with nothing delivered, when the profiles would grow too many.
bool meeting(const Shape& shape, const PieceSet& supply, Counting counting,
             const std::optional<Pin>& pin, Delivery& delivery, WorkMeter& meter);

}  // namespace Roads
