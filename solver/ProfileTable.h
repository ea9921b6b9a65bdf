#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

#include "solver/Window.h"

namespace solver {

/// A profile with its value, which is 0 in a free slot.
template <class Key, class Value>
struct ProfileEntry {
  Key key = 0;
  Value value = 0;
};

/// Adds to a sum, at most up to the largest value. True when that was too small.
template <class Value>
bool addUp(Value& sum, Value value) {
  if (!__builtin_add_overflow(sum, value, &sum)) return false;
  sum = std::numeric_limits<Value>::max();
  return true;
}

/// Arrays of free slots. Fresh pages cost more than the work, so they are used again and again.
template <class Entry>
class SlotPool {
 public:
  using Slots = std::vector<Entry>;

  explicit SlotPool(std::size_t mostBytes) : left_(mostBytes) {}

  /// `size` free slots, a power of two; empty when memory is used up.
  Slots take(std::size_t size) {
    std::vector<Slots>& kept = spare(size);
    if (kept.empty()) return fresh(size);
    Slots slots = std::move(kept.back());
    kept.pop_back();
    return slots;
  }
  /// Takes slots back, the free ones and the others.
  void give(Slots slots) {
    if (slots.empty()) return;
    std::ranges::fill(slots, Entry{});
    spare(slots.size()).push_back(std::move(slots));
  }

 private:
  std::vector<Slots>& spare(std::size_t size) {
    return spare_[static_cast<std::size_t>(std::countr_zero(size))];
  }
  Slots fresh(std::size_t size) {
    const std::size_t bytes = size * sizeof(Entry);
    for (std::size_t i = 0; i < spare_.size() && bytes > left_; ++i)
      for (; !spare_[i].empty(); spare_[i].pop_back()) left_ += sizeof(Entry) << i;
    if (bytes > left_) return {};
    left_ -= bytes;
    return Slots(size);
  }

  std::array<std::vector<Slots>, 48> spare_;
  std::size_t left_;
};

/// The profiles of one position with their values: a hash table with open addressing.
template <class Key, class Value>
class ProfileTable {
 public:
  using Entry = ProfileEntry<Key, Value>;
  using Pool = SlotPool<Entry>;

  bool empty() const { return size_ == 0; }

  /// The value of a key; it is 0 when the key is new, and then to be changed at once. Null when
  /// there is no memory for a new one.
  Value* at(Key key, Pool& pool) {
    if (2 * (size_ + 1) > slots_.size() && !grow(pool)) return find(key);
    Entry& entry = slots_[slotOf(key)];
    if (entry.value == 0) {
      entry.key = key;
      ++size_;
    }
    return &entry.value;
  }

  /// Asks the memory for the place of a key that will be added soon.
  void prefetch(Key key) const {
    if (!slots_.empty()) __builtin_prefetch(&slots_[home(key)], 1);
  }

  template <class Visit>
  void forEach(Visit&& visit) const {
    forEach(0, slots_.size(), visit);
  }
  std::size_t slots() const { return slots_.size(); }
  /// Those in up to `count` slots from the first one.
  template <class Visit>
  void forEach(std::size_t first, std::size_t count, Visit&& visit) const {
    first = std::min(first, slots_.size());
    const std::span<const Entry> all(slots_);
    for (const Entry& entry : all.subspan(first, std::min(count, all.size() - first)))
      if (entry.value != 0) visit(entry.key, entry.value);
  }

  void release(Pool& pool) {
    pool.give(std::move(slots_));
    slots_ = {};
    size_ = 0;
  }

 private:
  static constexpr std::size_t kFirstSlots = 64;

  std::size_t home(Key key) const {
    constexpr std::uint64_t golden = 0x9E3779B97F4A7C15;
    std::uint64_t mixed = static_cast<std::uint64_t>(key) * golden;
    if constexpr (sizeof(Key) > 8)
      mixed = (mixed ^ mixed >> 32 ^ static_cast<std::uint64_t>(key >> 64)) * golden;
    return mixed >> (64 - std::countr_zero(slots_.size()));
  }
  std::size_t slotOf(Key key) const {
    std::size_t slot = home(key);
    while (slots_[slot].value != 0 && slots_[slot].key != key)
      slot = (slot + 1) & (slots_.size() - 1);
    return slot;
  }
  Value* find(Key key) {
    if (size_ == 0) return nullptr;
    Entry& entry = slots_[slotOf(key)];
    return entry.value == 0 ? nullptr : &entry.value;
  }

  bool grow(Pool& pool) {
    auto slots = pool.take(std::max(kFirstSlots, 2 * slots_.size()));
    if (slots.empty()) return false;
    slots.swap(slots_);
    for (const Entry& entry : slots)
      if (entry.value != 0) slots_[slotOf(entry.key)] = entry;
    pool.give(std::move(slots));
    return true;
  }

  std::vector<Entry> slots_;
  std::size_t size_ = 0;
};

}  // namespace solver
