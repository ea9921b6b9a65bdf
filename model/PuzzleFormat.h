#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "model/PENTOGRID.h"

/// The bytes of a .qzl puzzle file; docs/puzzle-format.md describes them one by one.
namespace PuzzleFormat {

inline constexpr std::string_view kSignature = "Quinzolith/Kelvo Software/";
inline constexpr char kUnlocked = 'U';
inline constexpr char kLocked = 'L';
inline constexpr std::int32_t kMostPieces = 32767;
inline constexpr std::int16_t kBoardSize = 14;  ///< cells along each side of the windows' boards

/// What stands between the signature and the cells, and how many pieces follow the cells.
struct Version {
  std::int32_t major, minor, revision;
};

/// One piece record: five 16-bit numbers.
struct PieceRecord {
  std::int16_t type, x, y, rotations, flips;
};

/// Bytes of a file with `pieces` pieces whose board has `width` x `height` cells.
constexpr std::size_t fileSize(int width, int height, int pieces) {
  return kSignature.size() + 12 + 1 +
         2 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + 4 +
         10 * static_cast<std::size_t>(pieces);
}

/// A walk over the bytes of a file, little-endian.
/// Errors: every read beyond the data throws std::runtime_error that names the missing byte.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  std::string_view text(std::size_t length);
  std::int16_t int16();
  std::int32_t int32();
  PieceRecord piece();

 private:
  std::string_view bytes_;
  std::size_t position_ = 0;
};

/// The bytes of a puzzle: every cell that a piece covers is part of the shape, and the pieces lie
/// in placing order. `lockFlag` is kUnlocked or kLocked.
std::string write(const PENTOGRID& board, const Version& version, char lockFlag);

}  // namespace PuzzleFormat
