// Feeds kept inputs to a fuzzing target without a fuzzer. Usage: NAME FILE_OR_FOLDER...
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

void feed(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  std::printf("%s\n", file.c_str());
  std::fflush(stdout);  // the last name is the one to look at
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

int feedAll(const fs::path& place) {
  if (!fs::is_directory(place)) {
    feed(place);
    return 1;
  }
  int fed = 0;
  for (const auto& entry : fs::directory_iterator(place)) fed += feedAll(entry.path());
  return fed;
}

}  // namespace

int main(int argc, char** argv) {
  if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
  int fed = 0;
  for (int i = 1; i < argc; ++i) fed += feedAll(argv[i]);
  return fed > 0 ? 0 : 1;
}
