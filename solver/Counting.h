#pragma once

#include <optional>

#include "solver/Solver.h"

namespace solver {

/// Counts all tilings without listing them, where that is the faster way or asked for: over
/// profiles, or by a scan that has shown that it will soon be done. None when another strategy
/// serves better. The meter tells whether the number is all.
std::optional<Count> countTilings(const Problem& problem, WorkMeter& meter, Strategy strategy);

/// Of the tilings of a whole, of which `all` are known, the number up to the symmetries that lay
/// each part of it onto itself, by Burnside's lemma: the average over the symmetries of how many
/// tilings each of them lays onto themselves. The parts lie in one box. None when it cannot be
/// found over profiles.
std::optional<Count> countOrbits(Count all, const std::vector<Problem>& parts,
                                 const std::vector<Symmetry>& symmetries, WorkMeter& meter);

/// The product, or the largest Count; the meter is told of that.
Count product(Count a, Count b, WorkMeter& meter);

}  // namespace solver
