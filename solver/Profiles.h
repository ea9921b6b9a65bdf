#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "solver/ScanSearch.h"

namespace solver {

/// What lies ahead of partial tilings, without looking at which pieces they used: a graph of
/// profiles, and for each of them the sets of pieces that can finish the shape.
///
/// A profile is a position and a window, the state of a scan. An edge lays one piece. Many partial
/// tilings share a profile, and from profile to profile the ways grow together again, so the graph
/// stays small where a search would walk a tree. A set of pieces is a number of up to 12 bits; the
/// sets that finish a profile are a bit set of 4096 bits, of which only the words that are not zero
/// are kept: adding a piece to all of them is a shift, or a change of the word's number.
class Profiles {
 public:
  using Id = std::uint32_t;
  /// A set of pieces by number(type).
  using Pieces = std::uint32_t;

  class Storage;

  /// `types` are the types to be used, once each. All outlive the profiles. What the storage held
  /// is dropped.
  Profiles(const WindowTables<Bits64>& tables, const ScanShape<Bits64>& shape,
           const PieceSet& types, Storage& storage);

  Id idOf(Bits64 window, int position);
  /// Growing is given up beyond this number of profiles: they are to fit into memory.
  static constexpr Id kMost = 4'000'000;
  /// Follows every way from the profiles known so far. Each edge is a node of the meter. False
  /// when the meter ended it.
  bool grow(WorkMeter& meter);
  /// Finds the finishing sets of all profiles, from the end backwards.
  void finish();

  Pieces number(int type) const { return numbers_[static_cast<std::size_t>(type)]; }
  Pieces all() const { return all_; }
  bool canFinish(Id profile, Pieces pieces) const;

  /// Calls found(steps) for every way from the profile to the end that uses `pieces`; `steps` is
  /// what led here and is extended. False when found returned false.
  template <class Found>
  bool walk(Id profile, Pieces pieces, std::vector<Step>& steps, Found&& found) const;

 private:
  static constexpr Id kFree = ~Id{0};

  struct Node {
    Bits64 window = 0;
    std::uint64_t words = 0;  ///< which of the 64 words of the finishing sets are not zero
    std::uint32_t firstWord = 0, firstEdge = 0;
    Id next = kFree;  ///< another profile at the same position
    std::uint16_t edges = 0, position = 0;
  };
  struct Edge {
    Id to : 26;
    std::uint32_t orientation : 6;
  };

  struct Child {
    Bits64 window;
    int position, orientation;
  };

  bool growFrom(Id id, WorkMeter& meter);
  void collect(const Edge& edge, std::array<std::uint64_t, 64>& sets, std::uint64_t& words) const;
  void enlargeIndex();
  std::size_t slotFor(Bits64 window, int position) const;  ///< where looking for it begins
  std::size_t slotOf(Bits64 window, int position) const;

  const WindowTables<Bits64>& tables_;
  const ScanShape<Bits64>& shape_;
  OrientationSet allowed_ = 0;
  std::array<Pieces, PENTO::kTypes> numbers_{};
  Pieces all_ = 0;
  Storage& storage_;
};

/// The memory of profiles. Fresh pages cost more than the work, so it is kept from one use to the
/// next.
class Profiles::Storage {
  friend class Profiles;
  std::vector<Node> nodes;
  std::vector<Edge> edges;
  std::vector<std::uint64_t> words;
  std::vector<Id> firstAt;  ///< the newest profile of each position; nodes chain the others
  std::vector<Id> index;    ///< open addressing, a power of two
};

template <class Found>
bool Profiles::walk(Id profile, Pieces pieces, std::vector<Step>& steps, Found&& found) const {
  const Node& node = storage_.nodes[profile];
  if (node.position >= shape_.end()) return found(steps);
  for (std::uint32_t i = 0; i < node.edges; ++i) {
    const Edge edge = storage_.edges[node.firstEdge + i];
    const Pieces piece = number(tables_.type(static_cast<int>(edge.orientation)));
    if ((pieces & piece) == 0 || !canFinish(edge.to, pieces & ~piece)) continue;
    steps.push_back({static_cast<int>(edge.orientation), node.position});
    const bool goesOn = walk(edge.to, pieces & ~piece, steps, found);
    steps.pop_back();
    if (!goesOn) return false;
  }
  return true;
}

}  // namespace solver
