#pragma once

#include <cmath>
#include <optional>

#include "solver/SharedProfiles.h"

namespace solver {

/// Counts exact covers without listing them: a scan over all profiles at once.
///
/// Partial covers of one profile (ProfileSteps) can be finished in the same ways, so they are only
/// counted. The profiles of a position wait in a table of their own until all earlier positions are
/// done. Each item laid onto a profile is a node of the meter. A count that takes long is shared by
/// threads.
///
/// `Value` counts.
template <class Key, class Value>
class ProfileCount {
 public:
  ProfileCount(const Cover& cover, const SupplyCode& code, std::size_t memory, WorkMeter& meter)
      : ways_(cover, code),
        memory_(memory),
        meter_(meter),
        pool_(memory),
        tables_(static_cast<std::size_t>(ways_.end()) + 1),
        nodesBefore_(meter.work.nodes) {}

  /// The number; too small when one of the questions below is answered by yes.
  Value run();
  /// Makes run() give up as soon as it will probably take more nodes than this.
  void giveUpBeyond(std::uint64_t nodes) { mostNodes_ = nodes; }

  bool gaveUp() const { return gaveUp_; }
  bool overflowed() const { return overflowed_ || (shared_ && shared_->overflowed()); }
  /// True when profiles were left out because they would have taken too much memory.
  bool leftOut() const { return leftOut_ || (shared_ && shared_->leftOut()); }

 private:
  using Profile = typename ProfileSteps<Key>::Profile;
  using Table = ProfileTable<Key, Value>;
  /// Waits until its place has come from memory.
  struct Waiting {
    Table* table = nullptr;
    Key key = 0;
    Value value = 0;
  };
  static constexpr std::size_t kWaiting = 16;

  bool expand(int position);
  void enter(const Profile& profile, Value value);
  void put(const Waiting& added);
  void putAll();
  void share();
  bool takesTooLong(int position) const;

  const ProfileSteps<Key> ways_;
  const std::size_t memory_;
  WorkMeter& meter_;
  typename Table::Pool pool_;
  std::vector<Table> tables_;
  std::array<Waiting, kWaiting> waiting_{};
  std::size_t nextWaiting_ = 0;
  std::optional<SharedProfiles<Key, Value>> shared_;
  std::uint64_t mostNodes_ = Limits::kNone;
  const std::uint64_t nodesBefore_;
  bool gaveUp_ = false, overflowed_ = false, leftOut_ = false;
};

template <class Key, class Value>
Value ProfileCount<Key, Value>::run() {
  enter(ways_.start(), 1);
  meter_.node();
  const bool canRetry = sizeof(Value) < sizeof(Count);
  for (int position = 0; position < ways_.end() && !gaveUp_ && !(canRetry && overflowed());
       ++position) {
    putAll();
    if (!shared_ && meter_.sharing() > 0 && meter_.nodesAlone() == 0) share();
    if (!(shared_ ? shared_->expand(position) : expand(position))) break;
    gaveUp_ = takesTooLong(position);
  }
  putAll();
  if (shared_) return shared_->sum();
  Value sum = 0;
  tables_.back().forEach([&](Key, Value value) { overflowed_ |= addUp(sum, value); });
  return sum;
}

/// Goes by which share of the nodes that pay may be laid before the first position, by an eighth of
/// the positions, a quarter, ... where counts that paid stayed below, and most others did not.
template <class Key, class Value>
bool ProfileCount<Key, Value>::takesTooLong(int position) const {
  if (mostNodes_ == Limits::kNone) return false;
  constexpr std::array<double, 7> usual{0.002, 0.0035, 0.016, 0.07, 0.3, 0.7, 1};
  const double eighths = 8.0 * position / ways_.end();
  const auto passed = std::min(static_cast<std::size_t>(eighths), usual.size() - 2);
  const double share = std::lerp(usual[passed], usual[passed + 1],
                                 std::min(1.0, eighths - static_cast<double>(passed)));
  return static_cast<double>(meter_.work.nodes - nodesBefore_) >
         share * static_cast<double>(mostNodes_);
}

/// Lays every item that fits onto the position. False when the meter has ended it.
template <class Key, class Value>
bool ProfileCount<Key, Value>::expand(int position) {
  Table& table = tables_[static_cast<std::size_t>(position)];
  if (table.empty()) return true;
  bool goesOn = true;
  for (const auto& items : ways_.itemsAt(position))
    table.forEach([&](Key key, Value value) {
      goesOn = goesOn && ways_.follow(position, key, items, [&](const Profile& next) {
        enter(next, value);
        return meter_.node();
      });
    });
  table.release(pool_);
  return goesOn;
}

template <class Key, class Value>
void ProfileCount<Key, Value>::enter(const Profile& profile, Value value) {
  Waiting& place = waiting_[nextWaiting_++ % kWaiting];
  put(place);
  place = {&tables_[static_cast<std::size_t>(profile.position)], profile.key, value};
  place.table->prefetch(place.key);
}

template <class Key, class Value>
void ProfileCount<Key, Value>::put(const Waiting& added) {
  if (!added.table) return;
  if (Value* sum = added.table->at(added.key, pool_))
    overflowed_ |= addUp(*sum, added.value);
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

/// Nothing waits.
template <class Key, class Value>
void ProfileCount<Key, Value>::share() {
  pool_ = typename Table::Pool(0);  // what is free is needed for the parts
  // A quarter is left to what is noted in a round, and to what each thread's heap keeps for itself.
  shared_.emplace(ways_, memory_ - memory_ / 4, meter_);
  for (std::size_t position = 0; position < tables_.size(); ++position) {
    tables_[position].forEach(
        [&](Key key, Value value) { shared_->add(static_cast<int>(position), key, value); });
    tables_[position] = {};
  }
}

}  // namespace solver
