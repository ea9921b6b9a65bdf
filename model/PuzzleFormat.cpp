#include "model/PuzzleFormat.h"

namespace PuzzleFormat {

namespace {

std::uint32_t littleEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

void append(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

void append16(std::string& bytes, int value) {
  append(bytes, static_cast<std::uint32_t>(value), 2);
}

void append32(std::string& bytes, std::int32_t value) {
  append(bytes, static_cast<std::uint32_t>(value), 4);
}

}  // namespace

std::string Version::text() const {
  return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision);
}

std::string_view Reader::text(std::size_t length) {
  if (bytes_.size() - position_ < length)
    throw std::runtime_error("The file ends too early: byte " + std::to_string(bytes_.size()) +
                             " is missing.");
  const std::string_view result = bytes_.substr(position_, length);
  position_ += length;
  return result;
}

std::int16_t Reader::int16() {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(littleEndian(text(2))));
}

std::int32_t Reader::int32() {
  return static_cast<std::int32_t>(littleEndian(text(4)));
}

bool Reader::signature() {
  return text(kSignature.size()) == kSignature;
}

Version Reader::version() {
  Version version;
  version.major = int32();
  version.minor = int32();
  version.revision = int32();
  return version;
}

char Reader::lockFlag() {
  return text(1).front();
}

std::int16_t Reader::flag() {
  return int16();
}

std::int32_t Reader::pieceCount() {
  const std::int32_t count = int32();
  if (count < -kMostRecords - 1 || count > kMostRecords)
    throw std::runtime_error(
        "The file names an impossible number of pieces: " + std::to_string(count) + ".");
  return count;
}

PieceRecord Reader::piece() {
  PieceRecord record{};
  record.type = int16();
  record.x = int16();
  record.y = int16();
  record.rotations = int16();
  record.flips = int16();
  return record;
}

Contents read(std::string_view bytes) {
  Reader reader(bytes);
  if (!reader.signature())
    throw std::runtime_error(
        "This is no Quinzolith puzzle file: its first 26 bytes are not the signature.");
  Contents contents;
  contents.version = reader.version();
  contents.lockFlag = reader.lockFlag();
  for (int cell = 0; cell < kBoardSize * kBoardSize; ++cell)
    contents.flags.push_back(reader.flag());
  const std::int32_t count = reader.pieceCount();
  for (std::int32_t i = 0; i < count; ++i) contents.pieces.push_back(reader.piece());
  return contents;
}

std::string write(const PENTOGRID& board, char lockFlag, const Version& version) {
  const auto pieces = static_cast<int>(board.PentoCollection().Count());
  std::string bytes;
  bytes.reserve(fileSize(board.Width(), board.Height(), pieces));
  bytes += kSignature;
  append32(bytes, version.major);
  append32(bytes, version.minor);
  append32(bytes, version.revision);
  bytes.push_back(lockFlag);
  for (int x = 0; x < board.Width(); ++x)
    for (int y = 0; y < board.Height(); ++y) append16(bytes, board.PentoID(x, y) > 0 ? 0 : -1);
  append32(bytes, pieces);
  for (const auto& [id, piece] : board.PentoCollection()) {
    append16(bytes, piece->PentoType());
    append16(bytes, piece->X());
    append16(bytes, piece->Y());
    append16(bytes, piece->RotationCount);
    append16(bytes, piece->FlipCount);
  }
  return bytes;
}

}  // namespace PuzzleFormat
