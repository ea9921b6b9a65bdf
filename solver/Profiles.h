#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "solver/FinishingSets.h"
#include "solver/ScanSearch.h"

namespace solver {

/// What lies ahead of partial tilings, without looking at which pieces they used: a graph of
/// profiles, and for each of them the sets of pieces that can finish the shape.
///
/// A profile is a position and a window, the state of a scan. An edge lays one piece. Many partial
/// tilings share a profile, and from profile to profile the ways grow together again, so the graph
/// stays small where a search would walk a tree.
template <class Bits>
class Profiles {
 public:
  using Id = std::uint32_t;
  using Pieces = FinishingSets::Pieces;

  class Storage;

  /// The shape ends before position 4096. `types` are the types to be used, once each. All outlive
  /// the profiles. What the storage held is dropped.
  Profiles(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape, const PieceSet& types,
           Storage& storage);

  /// `left` pieces are missing.
  Id idOf(Bits window, int position, int left);
  /// Growing is given up beyond this number of profiles: they are to fit into memory.
  static constexpr Id kMost = 1'000'000;
  /// Follows every way from the profiles known so far. Each edge is a node of the meter. False
  /// when the meter ended it.
  bool grow(WorkMeter& meter);
  /// Finds the finishing sets of all profiles, from the end backwards.
  void finish();

  /// The piece of an orientation.
  Pieces piece(int orientation) const {
    return Pieces{1} << numbers_[static_cast<std::size_t>(orientation)];
  }
  Pieces all() const { return all_; }
  bool canFinish(Id profile, Pieces pieces) const {
    return storage_.sets.contains(storage_.nodes[profile].row, pieces);
  }

  /// Calls found(steps) for every way from the profile to the end that uses `pieces`; `steps` is
  /// what led here and is extended. False when found returned false.
  template <class Found>
  bool walk(Id profile, Pieces pieces, std::vector<Step>& steps, Found&& found) const;

 private:
  static constexpr int kIdBits = 20, kPositionBits = 12;
  static constexpr Id kFree = (Id{1} << kIdBits) - 1;
  static constexpr unsigned kPositionMask = (1u << kPositionBits) - 1;
  static constexpr std::size_t kBatch = 32;  ///< enough work for what is asked for to arrive

  struct Node {
    Bits window = 0;
    Id next = kFree;  ///< another profile at the same position
    std::uint32_t firstEdge = 0;
    FinishingSets::Row row = FinishingSets::kNone;
    std::uint16_t position = 0;
    std::uint8_t edges = 0, left = 0;
  };
  struct Edge {
    Id to : kIdBits;
    std::uint32_t orientation : 32 - kIdBits;
  };
  struct Child {
    Bits window;
    std::uint16_t position;
    std::uint8_t left, orientation;
  };
  struct Slot {
    Bits window;
    Id id : kIdBits;
    std::uint32_t position : kPositionBits;
  };

  void addChildren(Id id);
  bool addEdges(WorkMeter& meter);
  Id idOf(const Child& profile);
  void makeRoom(std::size_t profiles);
  void enlargeIndex();
  Slot& slotOf(Bits window, int position);
  std::size_t slotFor(Bits window, int position) const;  ///< where looking for it begins

  const WindowTables<Bits>& tables_;
  const ScanShape<Bits>& shape_;
  OrientationSet allowed_ = 0;
  std::array<std::uint8_t, kOrientations> numbers_{};
  Pieces all_ = 0;
  int pieces_ = 0;
  Storage& storage_;
  std::array<Child, kBatch + kOrientations> children_;
  std::size_t waiting_ = 0;
};

/// The memory of profiles. Fresh pages cost more than the work, so it is kept from one use to the
/// next.
template <class Bits>
class Profiles<Bits>::Storage {
  friend class Profiles;
  std::vector<Node> nodes;  ///< with room behind the last one
  Id size = 0;              ///< number of profiles
  std::vector<Edge> edges;
  std::vector<Id> firstAt;  ///< the newest profile of each position; nodes chain the others
  std::vector<Slot> index;  ///< open addressing, a power of two
  FinishingSets sets;
};

template <class Bits>
template <class Found>
bool Profiles<Bits>::walk(Id profile, Pieces pieces, std::vector<Step>& steps,
                          Found&& found) const {
  const Node& node = storage_.nodes[profile];
  if (node.position >= shape_.end()) return found(steps);
  const Edge* const edges = storage_.edges.data() + node.firstEdge;
  std::uint64_t open = 0;  // by edge; which ones are cannot be predicted, so asking is no branch
  for (std::uint32_t i = 0; i < node.edges; ++i) {
    const Pieces own = piece(static_cast<int>(edges[i].orientation));
    const bool leads = canFinish(edges[i].to, pieces & ~own);
    open |= static_cast<std::uint64_t>(leads & ((pieces & own) != 0)) << i;
  }
  for (; open != 0; open &= open - 1) {
    const Edge& edge = edges[std::countr_zero(open)];
    const auto orientation = static_cast<int>(edge.orientation);
    steps.push_back({orientation, node.position});
    const bool goesOn = walk(edge.to, pieces & ~piece(orientation), steps, found);
    steps.pop_back();
    if (!goesOn) return false;
  }
  return true;
}

}  // namespace solver
