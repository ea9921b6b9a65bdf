#pragma once

#include <cstddef>
#include <functional>

namespace solver {

/// The threads that this machine runs side by side; at most 16, at least 1.
unsigned threadsOfThisMachine();

/// Calls task(0), task(1), ... task(tasks - 1), each once, in any order, on up to that many
/// threads, of which one is the caller's; returns when all are done. The first exception that a
/// task throws ends the work early and is thrown again here.
void inParallel(unsigned threads, std::size_t tasks, const std::function<void(std::size_t)>& task);

}  // namespace solver
