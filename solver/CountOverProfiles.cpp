#include "solver/ProfileCount.h"
#include "solver/Strategies.h"

namespace solver {

namespace {

constexpr std::size_t kMemory = std::size_t{900} << 20;  // with what else there is, below 1 GiB

/// In a shape of more cells than this a count may well not fit into 64 bits.
constexpr int kManyCells = 100;

template <class Key, class Value>
std::optional<Count> count(const Cover& cover, const SupplyCode& code, WorkMeter& meter,
                           std::uint64_t mostNodes) {
  const std::uint64_t nodes = meter.work.nodes;
  ProfileCount<Key, Value> profiles(cover, code, kMemory, meter);
  profiles.giveUpBeyond(mostNodes);
  const Count number = profiles.run();
  if (profiles.gaveUp()) return std::nullopt;
  if (profiles.overflowed() && sizeof(Value) < sizeof(Count)) {
    meter.work.nodes = nodes;
    return count<Key, Count>(cover, code, meter, mostNodes);
  }
  if (profiles.overflowed() || profiles.leftOut()) {
    meter.work.tooLarge = true;
    meter.stop();
  }
  return number;
}

}  // namespace

std::optional<Count> countOverProfiles(const Shape& shape, const PieceSet& supply, Symmetry g,
                                       WorkMeter& meter, std::uint64_t mostNodes) {
  const int pieces = shape.area() / PENTO::kCells;
  if (shape.area() == 0) return 1;
  if (shape.area() % PENTO::kCells != 0 || supply.total() < pieces) return 0;
  const Cover cover(shape, supply, g);
  const SupplyCode code(supply, pieces);
  const int bits = cover.reach() + code.bits();
  const bool large = shape.area() > kManyCells;
  if (bits < kWindowBits<Bits64>)
    return large ? count<Bits64, Count>(cover, code, meter, mostNodes)
                 : count<Bits64, std::uint64_t>(cover, code, meter, mostNodes);
  if (bits < kWindowBits<Bits128>) return count<Bits128, Count>(cover, code, meter, mostNodes);
  return std::nullopt;
}

}  // namespace solver
