#include "solver/FinishingSets.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace solver {

namespace {

constexpr int kBitsInWord = 6;           ///< pieces told within a word; others number the words
constexpr std::size_t kFewestWords = 4;  ///< so that wide registers are filled

/// Of the sets of a word, those with piece 0, 1, ... 5.
constexpr std::array<std::uint64_t, kBitsInWord> kWith{0xAAAAAAAAAAAAAAAA, 0xCCCCCCCCCCCCCCCC,
                                                       0xF0F0F0F0F0F0F0F0, 0xFF00FF00FF00FF00,
                                                       0xFFFF0000FFFF0000, 0xFFFFFFFF00000000};
/// Of the sets of a word, those of an even number of these pieces.
constexpr std::uint64_t kEven = 0x9669699669969669;

/// What registers hold: those of every processor of 64 bits, and those of AVX2.
using Narrow [[gnu::vector_size(16)]] = std::uint64_t;
using Wide [[gnu::vector_size(32)]] = std::uint64_t;

bool hasWideRegisters() {
#ifdef __x86_64__
  return __builtin_cpu_supports("avx2");
#else
  return false;
#endif
}

}  // namespace

Seam<bool> FinishingSets::wideRegisters(hasWideRegisters());

void FinishingSets::reset(int pieces, std::size_t rows) {
  words_ = std::max(kFewestWords, std::size_t{1} << std::max(0, pieces - 1 - kBitsInWord));
  const std::size_t room = (rows + 3) * words_;
  if (room > room_) {
    bits_ = std::make_unique_for_overwrite<std::uint64_t[]>(room);
    room_ = room;
  }
  std::fill_n(bits_.get(), 2 * words_, 0);
  rows_ = 1;
  sum_ = *wideRegisters ? sumWide : sumNarrow;
  if (pieces != pieces_) makeMoves(pieces);
}

void FinishingSets::makeMoves(int pieces) {
  pieces_ = pieces;
  coded_ = (Pieces{1} << std::max(0, pieces - 1)) - 1;
  for (const std::size_t odd : {0U, 1U})
    for (int piece = 0; piece < pieces; ++piece) {
      Move& move = moves_[odd][static_cast<std::size_t>(piece)] = {};
      const bool inWord = piece < kBitsInWord, last = piece == pieces - 1;
      const std::size_t word = inWord ? 0 : std::size_t{1} << (piece - kBitsInWord);
      if (!last) move.words = word;
      if (!last && inWord) move.bits = 1 << piece;
      for (std::size_t i = 0; i < words_; ++i) {
        const bool even = (static_cast<unsigned>(std::popcount(i)) + odd) % 2 == 0;
        if (last)
          move.mask[i] = even ? kEven : ~kEven;
        else
          move.mask[i] = inWord ? kWith[static_cast<std::size_t>(piece)] : i & word ? ~0ull : 0;
      }
    }
}

FinishingSets::Row FinishingSets::addEmptySet() {
  std::uint64_t* row = &bits_[at(rows_)];
  std::fill_n(row, words_, 0);
  row[0] = 1;
  return rows_++;
}

/// Writes the row that the sources make together. True when there is a set in it.
template <class Block>
[[gnu::always_inline]] inline bool FinishingSets::sum(std::span<const Source> sources,
                                                      std::size_t words, std::uint64_t* row) {
  constexpr std::size_t wide = sizeof(Block) / sizeof *row;
  Block any{};
  for (std::size_t i = 0; i < words; i += wide) {
    Block all{};
    for (const Source& source : sources) {
      Block block, mask;
      std::memcpy(&block, source.from + i, sizeof block);
      std::memcpy(&mask, &source.move->mask[i], sizeof mask);
      all |= block << source.move->bits & mask;
    }
    any |= all;
    std::memcpy(row + i, &all, sizeof all);
  }
  std::uint64_t some = 0;
  for (std::size_t i = 0; i < wide; ++i) some |= any[i];
  return some != 0;
}

bool FinishingSets::sumNarrow(std::span<const Source> sources, std::size_t words,
                              std::uint64_t* row) {
  return sum<Narrow>(sources, words, row);
}

#ifdef __x86_64__
[[gnu::target("avx2")]]
#endif
bool FinishingSets::sumWide(std::span<const Source> sources, std::size_t words,
                            std::uint64_t* row) {
  return sum<Wide>(sources, words, row);
}

FinishingSets::Row FinishingSets::add(std::span<const Source> sources) {
  // Whether there is a set cannot be predicted, so it is no branch.
  const auto isNew = static_cast<Row>(sum_(sources, words_, &bits_[at(rows_)]));
  const Row added = rows_ & -isNew;
  rows_ += isNew;
  return added;
}

}  // namespace solver
