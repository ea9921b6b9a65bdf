// Feeds kept inputs to a fuzzing target without a fuzzer: each as it is, then copies of it that are
// damaged at random, the same in every run. Usage: NAME COPIES FILE_OR_FOLDER...
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

constexpr std::size_t kFront = 0x1500;  // holds the tables in front of a help file's content

/// A copy with a few bytes changed, some put in, left out or cut off. Every other place lies in the
/// front, where what decides about the rest stands.
std::string damaged(std::string bytes, std::mt19937& random) {
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (std::size_t changes = 1 + below(8); changes > 0 && !bytes.empty(); --changes) {
    const std::size_t at = below(below(2) == 0 ? std::min(kFront, bytes.size()) : bytes.size());
    const std::size_t kind = below(20);
    if (kind == 0)
      bytes.resize(at);
    else if (kind == 1)
      bytes.insert(at, 1 + below(12), static_cast<char>(random()));
    else if (kind == 2)
      bytes.erase(at, 1 + below(12));
    else if (kind < 8)
      bytes[at] = "\0\x01\x7F\x80\xFF"[below(5)];
    else
      bytes[at] = static_cast<char>(random());
  }
  return bytes;
}

void feed(const std::string& bytes) {
  std::fflush(stdout);  // the last name is the one to look at
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

void feedFile(const fs::path& file, int copies) {
  std::ifstream in(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  std::printf("%s\n", file.c_str());
  feed(bytes);
  std::mt19937 random(4711);
  for (int copy = 1; copy <= copies; ++copy) {
    std::printf("%s, damaged copy %d\n", file.c_str(), copy);
    feed(damaged(bytes, random));
  }
}

int feedAll(const fs::path& place, int copies) {
  if (!fs::is_directory(place)) {
    feedFile(place, copies);
    return 1;
  }
  int fed = 0;
  for (const auto& entry : fs::directory_iterator(place)) fed += feedAll(entry.path(), copies);
  return fed;
}

}  // namespace

int main(int argc, char** argv) {
  if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
  int fed = 0;
  for (int i = 2; i < argc; ++i) fed += feedAll(argv[i], std::atoi(argv[1]));
  return fed > 0 ? 0 : 1;
}
