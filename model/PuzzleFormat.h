#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "model/PENTOGRID.h"

/// The bytes of a .qzl puzzle file; docs/puzzle-format.md describes them one by one.
namespace PuzzleFormat {

inline constexpr std::string_view kSignature = "Quinzolith/Kelvo Software/";
inline constexpr char kUnlocked = 'U';
inline constexpr char kLocked = 'L';
inline constexpr std::int32_t kMostRecords = 32767;  ///< piece records that a reader takes
inline constexpr int kMostPieces = 15;  ///< pieces of a puzzle: what a tray holds with room to move
inline constexpr std::int16_t kBoardSize = 14;  ///< cells along each side of the windows' boards

/// What a player is told of a file that is no puzzle.
inline constexpr const char* kInvalid = "This is not a valid Quinzolith puzzle.";

/// The version of a program, as it stands behind the signature.
struct Version {
  std::int32_t major = 0, minor = 0, revision = 0;
  std::string text() const;  ///< joined by ".", for example 1.1.7
};
inline constexpr Version kThisVersion{QUINZOLITH_VERSION_MAJOR, QUINZOLITH_VERSION_MINOR,
                                      QUINZOLITH_VERSION_REVISION};

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

/// A walk over the fields of a file, to be called in the order in which they stand here; flag and
/// piece once for each cell and record. The loader acts between the fields, so that a file which
/// fails leaves what was read until then.
/// Errors: a read beyond the data throws std::runtime_error that names the missing byte.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  bool signature();  ///< whether the file begins as a puzzle does
  Version version();
  char lockFlag();
  std::int16_t flag();  ///< of one cell: 0 where a piece covers it
  /// Negative where a damaged file says so, which means no records.
  /// Errors: std::runtime_error for a number beyond 16 bits.
  std::int32_t pieceCount();
  PieceRecord piece();

 private:
  std::string_view text(std::size_t length);
  std::int16_t int16();
  std::int32_t int32();

  std::string_view bytes_;
  std::size_t position_ = 0;
};

/// All that a file of the windows' boards holds, as it stands there.
struct Contents {
  Version version;
  char lockFlag = kUnlocked;
  std::vector<std::int16_t> flags;  ///< column by column
  std::vector<PieceRecord> pieces;
};

/// Errors: std::runtime_error for another signature and for what Reader refuses.
Contents read(std::string_view bytes);

/// The bytes of a puzzle: every cell that a piece covers is part of the shape, and the pieces lie
/// in placing order. `lockFlag` is kUnlocked or kLocked.
std::string write(const PENTOGRID& board, char lockFlag, const Version& version = kThisVersion);

}  // namespace PuzzleFormat
