#pragma once

#include <vector>

#include "solver/ProfileSteps.h"
#include "solver/ProfileTable.h"
#include "solver/Threads.h"
#include "solver/Work.h"

namespace solver {

/// A count over profiles that is shared by threads.
///
/// The profiles belong to parts, by their keys. In each round the ways from some profiles of every
/// part are followed, and noted for the part that they lead to; then every part takes up what was
/// noted for it. That depends on nothing but the profiles, so all numbers are the same for any
/// number of threads.
template <class Key, class Value>
class SharedProfiles {
 public:
  /// The ways and the meter outlive it.
  SharedProfiles(const ProfileSteps<Key>& ways, std::size_t memory, WorkMeter& meter)
      : ways_(ways), meter_(meter) {
    for (std::size_t i = 0; i < kParts; ++i) parts_.emplace_back(ways.end() + 1, memory / kParts);
  }

  void add(int position, Key key, Value value) { parts_[partOf(key)].add({position, key, value}); }
  /// Follows all ways from a position; nothing is added to it later. False when the meter ended it.
  bool expand(int position);
  Value sum();

  bool overflowed() const { return std::ranges::any_of(parts_, &Part::overflowed); }
  bool leftOut() const { return std::ranges::any_of(parts_, &Part::leftOut); }

 private:
  using Table = ProfileTable<Key, Value>;
  using Items = typename ProfileSteps<Key>::Items;
  struct Added {
    int position;
    Key key;
    Value value;
  };
  /// Enough for all threads to end a round at about the same time.
  static constexpr std::size_t kParts = 16;
  /// Of each part in a round: some milliseconds for all.
  static constexpr std::size_t kSlots = 1024, kAhead = 16;

  struct Part {
    Part(int positions, std::size_t memory)
        : pool(memory), tables(static_cast<std::size_t>(positions)), noted(kParts) {}

    Table& table(int position) { return tables[static_cast<std::size_t>(position)]; }
    void add(const Added& added) {
      if (Value* sum = table(added.position).at(added.key, pool))
        overflowed |= addUp(*sum, added.value);
      else
        leftOut = true;
    }
    void addAll(const std::vector<Added>& all) {
      for (std::size_t i = 0; i < all.size(); ++i) {
        if (const std::size_t next = i + kAhead; next < all.size())
          table(all[next].position).prefetch(all[next].key);
        add(all[i]);
      }
    }

    typename Table::Pool pool;
    std::vector<Table> tables;              ///< by position
    std::vector<std::vector<Added>> noted;  ///< for each part
    bool overflowed = false, leftOut = false;
  };

  /// By other bits than the tables go by.
  static std::size_t partOf(Key key) {
    const auto folded = static_cast<std::uint64_t>(key) ^ static_cast<std::uint64_t>(key >> 32);
    return folded * 0xD6E8FEB86659FD93 >> 60;
  }
  bool runRound(int position, const std::vector<Items>& items, std::size_t firstSlot);

  const ProfileSteps<Key>& ways_;
  WorkMeter& meter_;
  std::vector<Part> parts_;
};

template <class Key, class Value>
bool SharedProfiles<Key, Value>::expand(int position) {
  std::size_t slots = 0;
  for (Part& part : parts_) slots = std::max(slots, part.table(position).slots());
  if (slots == 0) return true;
  const std::vector<Items> items = ways_.itemsAt(position);
  for (std::size_t first = 0; first < slots; first += kSlots)
    if (!runRound(position, items, first)) return false;
  for (Part& part : parts_) part.table(position).release(part.pool);
  return true;
}

template <class Key, class Value>
bool SharedProfiles<Key, Value>::runRound(int position, const std::vector<Items>& items,
                                          std::size_t firstSlot) {
  std::array<Work, kParts> done;
  inParallel(meter_.sharing(), kParts, [&](std::size_t i) {
    std::uint64_t nodes = 0;
    std::vector<std::vector<Added>>& noted = parts_[i].noted;
    parts_[i].table(position).forEach(firstSlot, kSlots, [&](Key key, Value value) {
      for (const Items& some : items)
        ways_.follow(position, key, some, [&](const auto& next) {
          noted[partOf(next.key)].push_back({next.position, next.key, value});
          ++nodes;
          return true;
        });
    });
    done[i].nodes = nodes;
  });
  inParallel(meter_.sharing(), kParts, [&](std::size_t i) {
    for (Part& from : parts_) {
      parts_[i].addAll(from.noted[i]);
      from.noted[i].clear();
    }
  });
  bool goesOn = true;
  for (const Work& some : done) goesOn = meter_.add(some) && goesOn;
  return goesOn;
}

template <class Key, class Value>
Value SharedProfiles<Key, Value>::sum() {
  Value sum = 0;
  for (Part& part : parts_)
    part.table(ways_.end()).forEach([&](Key, Value value) {
      part.overflowed |= addUp(sum, value);
    });
  return sum;
}

}  // namespace solver
