#pragma once

#include <array>
#include <bit>
#include <vector>

#include "solver/FitChunks.h"

namespace solver {

/// The ways from profile to profile of a cover.
///
/// Each partial cover of a scan has a profile: its first free position, which of the positions
/// behind it are taken, and how many pieces of each type are left. The latter two are a key:
/// `Key` holds window and pieces left, and one bit more than they need.
template <class Key>
class ProfileSteps {
  struct Move {
    Key mask, spent;
  };

 public:
  struct Profile {
    int position = 0;
    Key key = 0;
  };
  /// Up to 64 items of a position, ready to be tried.
  class Items {
    friend class ProfileSteps;
    FitChunks<Key> fits;
    std::array<Move, FitChunks<Key>::kMost> moves{};

   public:
    Items(FitChunks<Key> theirs) : fits(std::move(theirs)) {}
  };

  /// The cover outlives them.
  ProfileSteps(const Cover& cover, const SupplyCode& code);

  int end() const { return end_; }  ///< the position of what is finished, whose key is 0
  Profile start() const;
  /// All items of a position.
  std::vector<Items> itemsAt(int position) const;

  /// Calls enter(profile) for each item that fits, with where it leads; not for what can be seen to
  /// be a dead end. False when enter returned false.
  template <class Enter>
  bool follow(int position, Key key, const Items& items, Enter&& enter) const {
    for (auto set = items.fits.fitting(key); set != 0; set &= set - 1) {
      const Move& move = items.moves[static_cast<std::size_t>(std::countr_zero(set))];
      const Key left = (key & static_cast<Key>(~windowMask_)) - move.spent;
      Profile next{position, (key & windowMask_) | move.mask};
      if (advance(next, left) && !enter(next)) return false;
    }
    return true;
  }

 private:
  bool advance(Profile& profile, Key left) const;
  bool hasIsolated(Key window) const;

  const Cover& cover_;
  const SupplyCode code_;
  const int reach_, end_;
  const Key windowMask_, inSight_;
  std::vector<Key> walls_;  ///< the empty window of each position
};

template <class Key>
ProfileSteps<Key>::ProfileSteps(const Cover& cover, const SupplyCode& code)
    : cover_(cover),
      code_(code),
      reach_(cover.reach()),
      end_(cover.positions() + cover.stride()),
      windowMask_((Key{1} << reach_) - 1),
      inSight_(reach_ > cover.stride() ? (Key{1} << (reach_ - cover.stride())) - 1 : 0),
      walls_(static_cast<std::size_t>(end_) + 1) {
  // Behind the last column stands one more that belongs to no cell, and then a free position.
  Key window = 0;
  for (int position = end_; position-- > 0;) {
    const bool free = position < cover.positions() && cover.isFree(position);
    window = (window << 1 | static_cast<Key>(free ? 0 : 1)) & windowMask_;
    walls_[static_cast<std::size_t>(position)] = window;
  }
}

template <class Key>
typename ProfileSteps<Key>::Profile ProfileSteps<Key>::start() const {
  Profile first{0, walls_[0]};
  advance(first, static_cast<Key>(code_.start()) << reach_);
  return first;
}

template <class Key>
std::vector<typename ProfileSteps<Key>::Items> ProfileSteps<Key>::itemsAt(int position) const {
  constexpr std::size_t most = FitChunks<Key>::kMost;
  std::vector<Items> all;
  std::span<const CoverItem> items = cover_.itemsAt(position);
  for (; !items.empty(); items = items.subspan(std::min(most, items.size()))) {
    const auto some = items.first(std::min(most, items.size()));
    Items& added = all.emplace_back(FitChunks<Key>(some, reach_, code_));
    for (std::size_t i = 0; i < some.size(); ++i)
      added.moves[i] = {static_cast<Key>(some[i].mask), static_cast<Key>(code_.spent(some[i]))
                                                            << reach_};
  }
  return all;
}

/// Goes on to the first free position; the key is a window until then. False at a dead end.
template <class Key>
bool ProfileSteps<Key>::advance(Profile& profile, Key left) const {
  int position = profile.position;
  Key window = profile.key;
  do {
    const int step = lowestBit(static_cast<Key>(~window));
    position += step;
    window = window >> step | walls_[static_cast<std::size_t>(position)];
  } while ((window & 1) != 0);
  if (position >= end_) window = left = 0;
  profile = {position, window | left};
  return !cover_.isPlain() || !hasIsolated(window);
}

template <class Key>
bool ProfileSteps<Key>::hasIsolated(Key window) const {
  const int stride = cover_.stride();
  const Key free = ~window;
  const Key neighbours = free << 1 | free >> 1 | free << stride | free >> stride;
  return (free & ~neighbours & inSight_) != 0;
}

}  // namespace solver
