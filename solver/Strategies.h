#pragma once

#include "solver/Branching.h"
#include "solver/Work.h"

// The faster strategies for all solutions. Both take the trimmed shape of a frame whose columns are
// at most 14 cells high.
namespace solver {

/// Lays the piece branched on first, on each of its places, and scans what is left.
void branchAndScan(const Shape& shape, const PieceSet& supply, const Branching& branching,
                   Delivery& delivery, WorkMeter& meter);

/// True when the pieces are all different, all used, and enough for meeting in the middle to pay.
bool canMeet(const Shape& shape, const PieceSet& supply);

/// Meets in the middle: scans the first part of the shape, joins each partial tiling with the
/// profiles of the other part and follows only the ways that end in a solution. With a branching,
/// its piece keeps to its places. False, with nothing delivered, when the profiles would grow too
/// many.
bool meetInTheMiddle(const Shape& shape, const PieceSet& supply, Counting counting,
                     const std::optional<Branching>& branching, Delivery& delivery,
                     WorkMeter& meter);

/// Counts the tilings that g lays onto themselves, over profiles; with the identity, all. The shape
/// keeps its place in its box. None when that would probably take more than that number of nodes,
/// or the shape is too wide both ways for it. When the meter says that the count is not complete,
/// there may be more.
std::optional<Count> countOverProfiles(const Shape& shape, const PieceSet& supply, Symmetry g,
                                       WorkMeter& meter, std::uint64_t mostNodes);

}  // namespace solver
