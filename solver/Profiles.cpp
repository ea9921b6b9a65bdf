#include "solver/Profiles.h"

#include <algorithm>

namespace solver {

namespace {

constexpr std::size_t kFirstIndex = std::size_t{1} << 12;

}  // namespace

template <class Bits>
Profiles<Bits>::Profiles(const WindowTables<Bits>& tables, const ScanShape<Bits>& shape,
                         const PieceSet& types, Storage& storage)
    : tables_(tables), shape_(shape), storage_(storage) {
  storage.edges.clear();
  // Room is cheaper than moving: pages that are never touched cost nothing.
  storage.edges.reserve(std::size_t{1} << 18);
  storage.firstAt.assign(static_cast<std::size_t>(shape.end()) + 1, kFree);
  // Clearing takes time: an index as large as the last use wanted it.
  storage.index.assign(std::max(kFirstIndex, std::bit_ceil(2 * std::size_t{storage.size})),
                       Slot{0, kFree, 0});
  storage.size = 0;
  for (int type = 0; type < PENTO::kTypes; ++type) {
    if (types[type] == 0) continue;
    for (OrientationSet own = tables.ofType(type); own != 0; own &= own - 1)
      numbers_[static_cast<std::size_t>(std::countr_zero(own))] =
          static_cast<std::uint8_t>(pieces_);
    allowed_ |= tables.ofType(type);
    ++pieces_;
  }
  all_ = (Pieces{1} << pieces_) - 1;
}

template <class Bits>
std::size_t Profiles<Bits>::slotFor(Bits window, int position) const {
  const std::uint64_t mixed =
      (std::uint64_t{window} ^ static_cast<std::uint64_t>(position) << 48) * 0x9E3779B97F4A7C15;
  return static_cast<std::size_t>(mixed >> 40 ^ mixed >> 61) & (storage_.index.size() - 1);
}

template <class Bits>
typename Profiles<Bits>::Slot& Profiles<Bits>::slotOf(Bits window, int position) {
  std::vector<Slot>& index = storage_.index;
  std::size_t at = slotFor(window, position);
  while (index[at].id != kFree &&
         (index[at].window != window || index[at].position != static_cast<unsigned>(position)))
    at = (at + 1) & (index.size() - 1);
  return index[at];
}

template <class Bits>
typename Profiles<Bits>::Id Profiles<Bits>::idOf(Bits window, int position, int left) {
  makeRoom(1);
  return idOf(
      Child{window, static_cast<std::uint16_t>(position), static_cast<std::uint8_t>(left), 0});
}

template <class Bits>
typename Profiles<Bits>::Id Profiles<Bits>::idOf(const Child& profile) {
  Slot& slot = slotOf(profile.window, profile.position);
  if (slot.id != kFree) return slot.id;
  const Id id = storage_.size++;
  slot = {profile.window, id & kFree, profile.position & kPositionMask};
  Id& first = storage_.firstAt[profile.position];
  Node& node = storage_.nodes[id];
  node.window = profile.window;
  node.next = first;
  node.position = profile.position;
  node.left = profile.left;
  node.edges = 0;
  return first = id;
}

template <class Bits>
void Profiles<Bits>::makeRoom(std::size_t profiles) {
  const std::size_t size = storage_.size + profiles;
  if (size > storage_.nodes.size()) storage_.nodes.resize(2 * size);
  while (2 * size > storage_.index.size()) enlargeIndex();
}

template <class Bits>
void Profiles<Bits>::enlargeIndex() {
  storage_.index.assign(2 * storage_.index.size(), Slot{0, kFree, 0});
  for (Id id = 0; id < storage_.size; ++id) {
    const Node& node = storage_.nodes[id];
    slotOf(node.window, node.position) = {node.window, id & kFree, node.position & kPositionMask};
  }
}

template <class Bits>
bool Profiles<Bits>::grow(WorkMeter& meter) {
  // Every edge leads to a later position, and the last one has no edges.
  for (std::size_t position = 0; position + 1 < storage_.firstAt.size(); ++position) {
    for (Id id = storage_.firstAt[position]; id != kFree; id = storage_.nodes[id].next) {
      addChildren(id);
      if (waiting_ >= kBatch && !addEdges(meter)) return false;
    }
    if (!addEdges(meter)) return false;
  }
  return true;
}

template <class Bits>
void Profiles<Bits>::addChildren(Id id) {
  Node& node = storage_.nodes[id];
  const WindowTables<Bits>& tables = tables_;
  const Layout<Bits> layout = shape_.layout();
  const OrientationSet allowed = allowed_;
  const Bits base = node.window;
  const int from = node.position, end = shape_.end();
  const auto left = static_cast<std::uint8_t>(node.left - 1);
  Child* const first = children_.data() + waiting_;
  Child* next = first;
  for (OrientationSet candidates = tables.fitting(base) & allowed; candidates != 0;
       candidates &= candidates - 1) {
    const int orientation = std::countr_zero(candidates);
    Bits window = base | tables.mask(orientation);
    int position = from;
    layout.advance(window, position);
    *next = {window, static_cast<std::uint16_t>(position), left,
             static_cast<std::uint8_t>(orientation)};
    const bool fits = (tables.fitting(window) & allowed) != 0;
    // Whether a child lives cannot be predicted, so it is no branch.
    next += static_cast<int>(position >= end) |
            (static_cast<int>(fits) & static_cast<int>(!tables.hasIsolatedCell(window)));
  }
  node.firstEdge = static_cast<std::uint32_t>(storage_.edges.size() + waiting_);
  node.edges = static_cast<std::uint8_t>(next - first);
  waiting_ += static_cast<std::size_t>(next - first);
}

template <class Bits>
bool Profiles<Bits>::addEdges(WorkMeter& meter) {
  const std::span children(children_.data(), waiting_);
  for (const Child& child : children)
    __builtin_prefetch(&storage_.index[slotFor(child.window, child.position)]);
  makeRoom(waiting_);
  for (const Child& child : children) {
    storage_.edges.push_back({idOf(child) & kFree, child.orientation});
    if (!meter.node() || storage_.size > kMost) return false;
  }
  waiting_ = 0;
  return true;
}

template <class Bits>
void Profiles<Bits>::finish() {
  FinishingSets& sets = storage_.sets;
  sets.reset(pieces_, storage_.size);
  std::array<FinishingSets::Source, kOrientations> sources;
  for (std::size_t position = storage_.firstAt.size(); position-- > 0;)
    for (Id id = storage_.firstAt[position]; id != kFree; id = storage_.nodes[id].next) {
      Node& node = storage_.nodes[id];
      for (std::uint32_t i = 0; i < node.edges; ++i) {
        const Edge edge = storage_.edges[node.firstEdge + i];
        sources[i] =
            sets.source(storage_.nodes[edge.to].row, numbers_[edge.orientation], node.left - 1);
      }
      const bool isEnd = node.position >= shape_.end();
      node.row = isEnd ? sets.addEmptySet() : sets.add(std::span(sources.data(), node.edges));
    }
}

template class Profiles<Bits32>;
template class Profiles<Bits64>;

}  // namespace solver
