#pragma once

#include <array>
#include <bit>
#include <span>
#include <vector>

#include "solver/Cover.h"

namespace solver {

/// How the numbers of pieces left lie in a number: a field for each type that can run out.
class SupplyCode {
 public:
  struct Field {
    int type, shift, bits;
  };

  /// Types of which a tiling by `pieces` pieces cannot use up all are not counted.
  SupplyCode(const PieceSet& supply, int pieces) {
    for (int type = 0; type < PENTO::kTypes; ++type) {
      if (supply[type] == 0 || supply[type] >= pieces) continue;
      const auto width = static_cast<int>(std::bit_width(static_cast<unsigned>(supply[type])));
      fields_.push_back({type, bits_, width});
      start_ |= static_cast<Bits128>(supply[type]) << bits_;
      bits_ += width;
    }
  }

  int bits() const { return bits_; }
  Bits128 start() const { return start_; }
  const std::vector<Field>& fields() const { return fields_; }
  Bits128 spent(const CoverItem& item) const {
    for (const Field& field : fields_)
      if (field.type == item.type) return static_cast<Bits128>(item.copies) << field.shift;
    return 0;
  }

 private:
  int bits_ = 0;
  Bits128 start_ = 0;
  std::vector<Field> fields_;
};

/// Which of up to 64 items fit a window and the pieces left, by tables: the key is cut into chunks
/// of up to 8 bits, and each chunk has a table of the items that it does not forbid.
template <class Key>
class FitChunks {
 public:
  using Set = std::uint64_t;  ///< of items, by their index
  static constexpr std::size_t kMost = 64;

  /// At least one item. `reach` bits of a key are the window, the pieces left lie above.
  FitChunks(std::span<const CoverItem> items, int reach, const SupplyCode& code) {
    const Set all = ~Set{0} >> (kMost - items.size());
    for (int from = 1; from < reach; from += kChunk)
      addWindow(items, from, std::min(kChunk, reach - from), all);
    const std::vector<SupplyCode::Field>& fields = code.fields();
    for (std::size_t first = 0; first < fields.size();) {
      std::size_t last = first + 1;
      const auto width = [&](std::size_t to) {
        return fields[to].shift + fields[to].bits - fields[first].shift;
      };
      while (last < fields.size() && width(last) <= kChunk) ++last;
      addFields(items, std::span(fields).subspan(first, last - first), reach, all);
      first = last;
    }
  }

  Set fitting(Key key) const {
    Set set = ~Set{0};
    for (const Chunk& chunk : chunks_)
      set &= chunk.fits[static_cast<std::size_t>(key >> chunk.shift) & chunk.mask];
    return set;
  }

 private:
  static constexpr int kChunk = 8;

  struct Chunk {
    int shift;
    std::size_t mask;
    std::array<Set, 1 << kChunk> fits;
  };

  void addWindow(std::span<const CoverItem> items, int from, int bits, Set all) {
    Chunk& chunk = chunks_.emplace_back();
    chunk.shift = from;
    chunk.mask = (std::size_t{1} << bits) - 1;
    std::array<Set, kChunk> touching{};
    for (std::size_t i = 0; i < items.size(); ++i)
      for (int bit = 0; bit < bits; ++bit)
        touching[static_cast<std::size_t>(bit)] |=
            static_cast<Set>(items[i].mask >> (from + bit) & 1) << i;
    chunk.fits[0] = all;
    for (std::size_t taken = 1; taken <= chunk.mask; ++taken)
      chunk.fits[taken] = chunk.fits[taken & (taken - 1)] &
                          ~touching[static_cast<std::size_t>(std::countr_zero(taken))];
  }

  void addFields(std::span<const CoverItem> items, std::span<const SupplyCode::Field> fields,
                 int reach, Set all) {
    const SupplyCode::Field& last = fields.back();
    const int from = fields.front().shift, bits = last.shift + last.bits - from;
    Chunk& chunk = chunks_.emplace_back();
    chunk.shift = reach + from;
    chunk.mask = (std::size_t{1} << bits) - 1;
    chunk.fits.fill(all);
    for (const SupplyCode::Field& field : fields)
      for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].type != field.type) continue;
        const auto enough = static_cast<std::size_t>(items[i].copies);
        for (std::size_t left = 0; left <= chunk.mask; ++left)
          if ((left >> (field.shift - from) & ((std::size_t{1} << field.bits) - 1)) < enough)
            chunk.fits[left] &= ~(Set{1} << i);
      }
  }

  std::vector<Chunk> chunks_;
};

}  // namespace solver
