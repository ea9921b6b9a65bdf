#pragma once

#include <cmath>
#include <limits>

#include "solver/FitChunks.h"
#include "solver/ProfileTable.h"
#include "solver/Work.h"

namespace solver {

/// Counts exact covers without listing them: a scan over all profiles at once.
///
/// Each partial cover of a scan has a profile: its first free position, which of the positions
/// behind it are taken, and how many pieces of each type are left. Partial covers of one profile
/// can be finished in the same ways, so they are only counted. The profiles of a position wait in a
/// table of their own until all earlier positions are done. Each item laid onto a profile is a node
/// of the meter.
///
/// `Key` holds window and pieces left, and one bit more than they need; `Value` counts.
template <class Key, class Value>
class ProfileCount {
 public:
  ProfileCount(const Cover& cover, const SupplyCode& code, std::size_t memory, WorkMeter& meter);

  /// The number; too small unless wentWell().
  Value run();
  /// Makes run() give up as soon as it will probably take more nodes than this.
  void giveUpBeyond(std::uint64_t nodes) { mostNodes_ = nodes; }

  bool gaveUp() const { return gaveUp_; }
  bool overflowed() const { return overflowed_; }
  /// True when profiles were left out because they would have taken too much memory.
  bool leftOut() const { return leftOut_; }

 private:
  using Table = ProfileTable<Key, Value>;
  using Fits = FitChunks<Key>;
  struct Move {
    Key mask, spent;
  };
  /// Waits until its place has come from memory.
  struct Waiting {
    Table* table = nullptr;
    Key key = 0;
    Value value = 0;
  };
  static constexpr std::size_t kWaiting = 16;

  bool expand(int position, const Table& table);
  bool expand(int position, const Table& table, std::span<const CoverItem> items);
  bool enter(int position, Key window, Key left, Value value);
  bool hasIsolated(Key window) const;
  void put(const Waiting& added);
  void putAll();
  bool takesTooLong(int position) const;

  void add(Value& sum, Value value) {
    if (!__builtin_add_overflow(sum, value, &sum)) return;
    overflowed_ = true;
    sum = std::numeric_limits<Value>::max();
  }

  const Cover& cover_;
  const SupplyCode& code_;
  WorkMeter& meter_;
  typename Table::Pool pool_;
  const int reach_, end_;
  const Key windowMask_, inSight_;
  std::vector<Key> walls_;  ///< the empty window of each position
  std::vector<Table> tables_;
  std::array<Waiting, kWaiting> waiting_{};
  std::size_t nextWaiting_ = 0;
  std::uint64_t mostNodes_ = Limits::kNone;
  const std::uint64_t nodesBefore_;
  bool gaveUp_ = false, overflowed_ = false, leftOut_ = false;
};

template <class Key, class Value>
ProfileCount<Key, Value>::ProfileCount(const Cover& cover, const SupplyCode& code,
                                       std::size_t memory, WorkMeter& meter)
    : cover_(cover),
      code_(code),
      meter_(meter),
      pool_(memory),
      reach_(cover.reach()),
      end_(cover.positions() + cover.stride()),
      windowMask_((Key{1} << reach_) - 1),
      inSight_(reach_ > cover.stride() ? (Key{1} << (reach_ - cover.stride())) - 1 : 0),
      walls_(static_cast<std::size_t>(end_) + 1),
      tables_(static_cast<std::size_t>(end_) + 1),
      nodesBefore_(meter.work.nodes) {
  // Behind the last column stands one more that belongs to no cell, and then a free position.
  Key window = 0;
  for (int position = end_; position-- > 0;) {
    const bool free = position < cover.positions() && cover.isFree(position);
    window = (window << 1 | static_cast<Key>(free ? 0 : 1)) & windowMask_;
    walls_[static_cast<std::size_t>(position)] = window;
  }
}

template <class Key, class Value>
Value ProfileCount<Key, Value>::run() {
  enter(0, walls_[0], static_cast<Key>(code_.start()) << reach_, 1);
  const bool canRetry = sizeof(Value) < sizeof(Count);
  for (int position = 0; position < end_ && !gaveUp_ && !(overflowed_ && canRetry); ++position) {
    putAll();
    Table& table = tables_[static_cast<std::size_t>(position)];
    if (table.empty()) continue;
    if (!expand(position, table)) break;
    table.release(pool_);
    gaveUp_ = takesTooLong(position);
  }
  putAll();
  Value sum = 0;
  tables_.back().forEach([&](Key, Value value) { add(sum, value); });
  return sum;
}

/// Goes by which share of the nodes that pay may be laid before the first position, by an eighth of
/// the positions, a quarter, ... where counts that paid stayed below, and most others did not.
template <class Key, class Value>
bool ProfileCount<Key, Value>::takesTooLong(int position) const {
  if (mostNodes_ == Limits::kNone) return false;
  constexpr std::array<double, 7> usual{0.002, 0.0035, 0.016, 0.07, 0.3, 0.7, 1};
  const double eighths = 8.0 * position / end_;
  const auto passed = std::min(static_cast<std::size_t>(eighths), usual.size() - 2);
  const double share = std::lerp(usual[passed], usual[passed + 1],
                                 std::min(1.0, eighths - static_cast<double>(passed)));
  return static_cast<double>(meter_.work.nodes - nodesBefore_) >
         share * static_cast<double>(mostNodes_);
}

/// Lays every item that fits onto the position. False when the meter has ended it.
template <class Key, class Value>
bool ProfileCount<Key, Value>::expand(int position, const Table& table) {
  const std::span<const CoverItem> all = cover_.itemsAt(position);
  for (std::size_t first = 0; first < all.size(); first += Fits::kMost)
    if (!expand(position, table, all.subspan(first, std::min(Fits::kMost, all.size() - first))))
      return false;
  return true;
}

template <class Key, class Value>
bool ProfileCount<Key, Value>::expand(int position, const Table& table,
                                      std::span<const CoverItem> items) {
  const Fits fits(items, reach_, code_);
  std::array<Move, Fits::kMost> moves{};
  for (std::size_t i = 0; i < items.size(); ++i)
    moves[i] = {static_cast<Key>(items[i].mask), static_cast<Key>(code_.spent(items[i])) << reach_};
  bool goesOn = true;
  table.forEach([&](Key key, Value value) {
    for (auto set = fits.fitting(key); set != 0 && goesOn; set &= set - 1) {
      const Move& move = moves[static_cast<std::size_t>(std::countr_zero(set))];
      goesOn = enter(position, (key & windowMask_) | move.mask,
                     (key & static_cast<Key>(~windowMask_)) - move.spent, value);
    }
  });
  return goesOn;
}

/// Goes on to the first free position of a window.
template <class Key, class Value>
bool ProfileCount<Key, Value>::enter(int position, Key window, Key left, Value value) {
  do {
    const int step = lowestBit(static_cast<Key>(~window));
    position += step;
    window = window >> step | walls_[static_cast<std::size_t>(position)];
  } while ((window & 1) != 0);
  if (position >= end_) window = left = 0;
  if (cover_.isPlain() && hasIsolated(window)) return true;
  Waiting& place = waiting_[nextWaiting_++ % kWaiting];
  put(place);
  place = {&tables_[static_cast<std::size_t>(position)], window | left, value};
  place.table->prefetch(place.key);
  return meter_.node();
}

template <class Key, class Value>
bool ProfileCount<Key, Value>::hasIsolated(Key window) const {
  const int stride = cover_.stride();
  const Key free = ~window;
  const Key neighbours = free << 1 | free >> 1 | free << stride | free >> stride;
  return (free & ~neighbours & inSight_) != 0;
}

template <class Key, class Value>
void ProfileCount<Key, Value>::put(const Waiting& added) {
  if (!added.table) return;
  if (Value* sum = added.table->at(added.key, pool_))
    add(*sum, added.value);
  else
    leftOut_ = true;
}

template <class Key, class Value>
void ProfileCount<Key, Value>::putAll() {
  for (Waiting& place : waiting_) {
    put(place);
    place.table = nullptr;
  }
}

}  // namespace solver
