#include "model/PuzzleStore.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

bool streamExists(const fs::path& file) {
  const std::string name = file.filename().string();
  return !name.empty() && name.front() != '.' && fs::is_regular_file(fs::status(file));
}

std::string streamRead(const fs::path& file, std::size_t ceiling) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("The file cannot be opened.");
  in.seekg(0, std::ios::end);
  const auto size = static_cast<std::size_t>(std::max<std::streamoff>(in.tellg(), 0));
  std::string bytes(std::min(size, ceiling), '\0');
  in.seekg(0);
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (in.bad()) throw std::runtime_error("The file cannot be read.");
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

void refuseLongTail(const fs::path& file, std::size_t from, std::size_t longestTail) {
  std::error_code none;
  const std::uintmax_t size = fs::file_size(file, none);
  if (!none && size > from && size - from > longestTail)
    throw std::length_error("The file that would be written over is too large.");
}

void streamWrite(const fs::path& file, const std::string& bytes, std::size_t longestTail) {
  refuseLongTail(file, bytes.size(), longestTail);
  std::ofstream(file, std::ios::binary | std::ios::app);  // creates it; the next would not
  std::fstream out(file, std::ios::binary | std::ios::in | std::ios::out);
  if (!out) throw std::runtime_error("The file cannot be opened for writing.");
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) throw std::runtime_error("The file cannot be written.");
}

}  // namespace

PuzzleStore streamPuzzleStore() {
  return {streamExists, streamRead, streamWrite};
}
