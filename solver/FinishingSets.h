#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "seams/Seam.h"

namespace solver {

/// For many profiles, which sets of pieces can finish each: a row of bits for a profile, a bit for
/// a set.
///
/// The pieces are up to 12 different ones, and all sets of a row are of one size. So whether the
/// last piece is in a set follows from the others, and a row needs a bit only for each subset of
/// these: the subset, read as a binary number, is the bit's number. Laying a piece moves the whole
/// row by a power of two bits, and drops the sets that held the piece before.
class FinishingSets {
 public:
  /// A set of pieces by their bits.
  using Pieces = std::uint32_t;
  using Row = std::uint32_t;
  static constexpr int kMostPieces = 12;
  /// Whether rows are added in registers of 256 bits (AVX2), where the processor has them. The sets
  /// are the same either way.
  static Seam<bool> wideRegisters;
  /// The row of no set at all.
  static constexpr Row kNone = 0;
  /// The sets of a row with one piece more.
  class Source;

  /// Drops what was held and makes room for so many rows. Memory is kept from use to use.
  void reset(int pieces, std::size_t rows);
  /// The row of the empty set.
  Row addEmptySet();
  /// The row of all sets that come from the sources; kNone when there is none.
  Row add(std::span<const Source> sources);
  /// `piece` is a number, and the row's sets hold `size` pieces.
  Source source(Row row, int piece, int size) const;
  bool contains(Row row, Pieces pieces) const {
    const Pieces bit = pieces & coded_;
    return bits_[at(row) + bit / 64] >> (bit % 64) & 1;
  }

 private:
  static constexpr std::size_t kMostWords = std::size_t{1} << (kMostPieces - 1 - 6);
  /// How laying a piece moves a row: by words, by bits within each; then the masked sets stay.
  struct Move {
    std::size_t words = 0;
    int bits = 0;
    std::array<std::uint64_t, kMostWords> mask{};
  };

  void makeMoves(int pieces);
  template <class Block>
  static bool sum(std::span<const Source> sources, std::size_t words, std::uint64_t* row);
  static bool sumNarrow(std::span<const Source> sources, std::size_t words, std::uint64_t* row);
  static bool sumWide(std::span<const Source> sources, std::size_t words, std::uint64_t* row);
  /// Before the first row there is room for what a move reads in vain.
  std::size_t at(Row row) const { return (std::size_t{row} + 1) * words_; }

  decltype(&sumNarrow) sum_ = sumNarrow;
  Pieces coded_ = 0;  ///< all but the last
  int pieces_ = 0;
  std::size_t words_ = 1, room_ = 0;
  std::array<std::array<Move, kMostPieces>, 2> moves_;  ///< of rows of even and of odd sizes
  std::unique_ptr<std::uint64_t[]> bits_;
  Row rows_ = 0;
};

class FinishingSets::Source {
  friend class FinishingSets;
  const std::uint64_t* from;
  const Move* move;
};

inline FinishingSets::Source FinishingSets::source(Row row, int piece, int size) const {
  Source source;
  source.move = &moves_[static_cast<std::size_t>(size % 2)][static_cast<std::size_t>(piece)];
  source.from = &bits_[at(row)] - source.move->words;
  return source;
}

}  // namespace solver
