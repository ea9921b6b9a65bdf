#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "tests/model/BareTarget.h"
#include "tests/model/MemoryStore.h"

namespace {

/// The bytes of the dump on the page about the format: lines of an offset and up to 16 bytes.
std::string dumpOnThePage() {
  std::ifstream page(QUINZOLITH_SOURCE_DIR "/docs/puzzle-format.md");
  std::string bytes;
  bool inDump = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) inDump = line == "```hexdump";
    std::istringstream words(line.substr(0, line.find('|')));
    std::size_t offset = 0;
    if (!inDump || !(words >> std::hex >> offset)) continue;
    EXPECT_EQ(offset, bytes.size()) << line;
    for (unsigned value = 0; words >> std::hex >> value;) bytes.push_back(static_cast<char>(value));
  }
  return bytes;
}

TEST(PuzzlePage, ItsDumpIsWhatIsSaved) {
  constexpr std::size_t kVersion = 26, kFlag = 38;
  const std::string dump = dumpOnThePage();
  ASSERT_EQ(dump.size(), PuzzleFormat::fileSize(14, 14, 2));
  BareWindows windows;
  MemoryStore disk;
  const Replacement store(basTiles::store, disk.store());
  disk.files["page.qzl"] = dump;
  ASSERT_TRUE(basTiles::LoadPuzzle("page.qzl", true)) << basTiles::LastFileError;
  ASSERT_EQ(windows.editor.grid.PentoCollection().Count(), 2u);
  ASSERT_TRUE(basTiles::SavePuzzle("saved.qzl", windows.editor));
  const std::string saved = disk.files["saved.qzl"];
  EXPECT_EQ(saved.substr(0, kVersion), dump.substr(0, kVersion));
  EXPECT_EQ(saved.substr(kFlag), dump.substr(kFlag));

  // The page's version words are those of the version that wrote its example.
  EXPECT_EQ(PuzzleFormat::read(dump).version.text(), "1.1.7");
  EXPECT_EQ(PuzzleFormat::read(saved).version.text(), PuzzleFormat::kThisVersion.text());
}

}  // namespace
