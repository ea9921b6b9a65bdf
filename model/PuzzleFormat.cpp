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

PieceRecord Reader::piece() {
  PieceRecord record{};
  record.type = int16();
  record.x = int16();
  record.y = int16();
  record.rotations = int16();
  record.flips = int16();
  return record;
}

std::string write(const PENTOGRID& board, const Version& version, char lockFlag) {
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
