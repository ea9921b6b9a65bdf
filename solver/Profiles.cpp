#include "solver/Profiles.h"

#include <algorithm>

namespace solver {

namespace {

constexpr int kBitsInWord = 6;  ///< pieces told within a word; the others number the word
constexpr std::uint32_t kIdBits = (1u << 26) - 1;
constexpr std::size_t kFirstIndex = std::size_t{1} << 15;

/// Of the 64 sets of a word, those without piece 0, 1, ... 5.
constexpr std::array<std::uint64_t, kBitsInWord> kWithout{0x5555555555555555, 0x3333333333333333,
                                                          0x0F0F0F0F0F0F0F0F, 0x00FF00FF00FF00FF,
                                                          0x0000FFFF0000FFFF, 0x00000000FFFFFFFF};

}  // namespace

Profiles::Profiles(const WindowTables<Bits64>& tables, const ScanShape<Bits64>& shape,
                   const PieceSet& types, Storage& storage)
    : tables_(tables), shape_(shape), storage_(storage) {
  storage.nodes.clear();
  storage.edges.clear();
  storage.words.clear();
  // Room is cheaper than moving: pages that are never touched cost nothing.
  storage.nodes.reserve(std::size_t{1} << 16);
  storage.edges.reserve(std::size_t{1} << 18);
  storage.words.reserve(std::size_t{1} << 18);
  storage.firstAt.assign(static_cast<std::size_t>(shape.end()) + 1, kFree);
  storage.index.assign(std::max(storage.index.size(), kFirstIndex), kFree);
  int pieces = 0;
  for (int type = 0; type < PENTO::kTypes; ++type) {
    if (types[type] == 0) continue;
    numbers_[static_cast<std::size_t>(type)] = Pieces{1} << pieces++;
    allowed_ |= tables.ofType(type);
  }
  all_ = (Pieces{1} << pieces) - 1;
}

std::size_t Profiles::slotFor(Bits64 window, int position) const {
  const std::uint64_t mixed =
      (window ^ static_cast<std::uint64_t>(position) << 48) * 0x9E3779B97F4A7C15;
  return (mixed ^ mixed >> 29) >> 7 & (storage_.index.size() - 1);
}

std::size_t Profiles::slotOf(Bits64 window, int position) const {
  const std::vector<Id>& index = storage_.index;
  std::size_t slot = slotFor(window, position);
  for (; index[slot] != kFree; slot = (slot + 1) & (index.size() - 1)) {
    const Node& node = storage_.nodes[index[slot]];
    if (node.window == window && node.position == position) break;
  }
  return slot;
}

Profiles::Id Profiles::idOf(Bits64 window, int position) {
  std::vector<Node>& nodes = storage_.nodes;
  if (2 * nodes.size() >= storage_.index.size()) enlargeIndex();
  Id& entry = storage_.index[slotOf(window, position)];
  if (entry != kFree) return entry;
  entry = static_cast<Id>(nodes.size());
  Id& first = storage_.firstAt[static_cast<std::size_t>(position)];
  nodes.push_back({window, 0, 0, 0, first, 0, static_cast<std::uint16_t>(position)});
  first = entry;
  return entry;
}

void Profiles::enlargeIndex() {
  storage_.index.assign(2 * storage_.index.size(), kFree);
  for (Id id = 0; id < storage_.nodes.size(); ++id)
    storage_.index[slotOf(storage_.nodes[id].window, storage_.nodes[id].position)] = id;
}

bool Profiles::grow(WorkMeter& meter) {
  // Every edge leads to a later position, and the last one has no edges.
  for (std::size_t position = 0; position + 1 < storage_.firstAt.size(); ++position)
    for (Id id = storage_.firstAt[position]; id != kFree; id = storage_.nodes[id].next)
      if (!growFrom(id, meter)) return false;
  return true;
}

bool Profiles::growFrom(Id id, WorkMeter& meter) {
  const Bits64 base = storage_.nodes[id].window;
  const int from = storage_.nodes[id].position;
  std::array<Child, kOrientations> children;
  Child* next = children.data();
  for (OrientationSet candidates = tables_.fitting(base) & allowed_; candidates != 0;
       candidates &= candidates - 1) {
    const int orientation = std::countr_zero(candidates);
    Bits64 window = base | tables_.mask(orientation);
    int position = from;
    shape_.advance(window, position);
    const bool fits = (tables_.fitting(window) & allowed_) != 0;
    *next = {window, position, orientation};
    // Whether a child lives cannot be predicted, so it is no branch.
    next += static_cast<int>(position >= shape_.end()) |
            (static_cast<int>(fits) & static_cast<int>(!tables_.hasIsolatedCell(window)));
  }
  const std::span living(children.data(), next);
  for (const Child& child : living)
    __builtin_prefetch(&storage_.index[slotFor(child.window, child.position)]);
  const auto firstEdge = static_cast<std::uint32_t>(storage_.edges.size());
  for (const Child& child : living) {
    const Id to = idOf(child.window, child.position);
    storage_.edges.push_back({to & kIdBits, static_cast<std::uint32_t>(child.orientation) & 63});
    if (!meter.node() || storage_.nodes.size() > kMost) return false;
  }
  Node& node = storage_.nodes[id];
  node.firstEdge = firstEdge;
  node.edges = static_cast<std::uint16_t>(living.size());
  return true;
}

void Profiles::collect(const Edge& edge, std::array<std::uint64_t, 64>& sets,
                       std::uint64_t& words) const {
  const Node& node = storage_.nodes[edge.to];
  const int piece = std::countr_zero(number(tables_.type(static_cast<int>(edge.orientation))));
  const std::uint64_t* source = storage_.words.data() + node.firstWord;
  for (std::uint64_t left = node.words; left != 0; left &= left - 1, ++source) {
    auto word = static_cast<std::size_t>(std::countr_zero(left));
    std::uint64_t added = *source;
    if (piece < kBitsInWord) {
      added = (added & kWithout[static_cast<std::size_t>(piece)]) << (1 << piece);
    } else {
      const std::size_t bit = std::size_t{1} << (piece - kBitsInWord);
      if (word & bit) continue;
      word |= bit;
    }
    sets[word] |= added;
    words |= static_cast<std::uint64_t>(added != 0) << word;
  }
}

void Profiles::finish() {
  std::array<std::uint64_t, 64> sets{};
  for (std::size_t position = storage_.firstAt.size(); position-- > 0;)
    for (Id id = storage_.firstAt[position]; id != kFree; id = storage_.nodes[id].next) {
      Node& node = storage_.nodes[id];
      if (node.position >= shape_.end()) sets[0] = node.words = 1;  // no piece is needed
      for (std::uint32_t i = 0; i < node.edges; ++i)
        collect(storage_.edges[node.firstEdge + i], sets, node.words);
      node.firstWord = static_cast<std::uint32_t>(storage_.words.size());
      for (std::uint64_t left = node.words; left != 0; left &= left - 1) {
        std::uint64_t& word = sets[static_cast<std::size_t>(std::countr_zero(left))];
        storage_.words.push_back(word);
        word = 0;
      }
    }
}

bool Profiles::canFinish(Id profile, Pieces pieces) const {
  const Node& node = storage_.nodes[profile];
  const std::uint64_t word = std::uint64_t{1} << (pieces >> kBitsInWord);
  if ((node.words & word) == 0) return false;
  const auto before = static_cast<std::uint32_t>(std::popcount(node.words & (word - 1)));
  return storage_.words[node.firstWord + before] >> (pieces & 63) & 1;
}

}  // namespace solver
