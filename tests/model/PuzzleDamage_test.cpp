#include <gtest/gtest.h>

#include <random>

#include "tests/model/GridCheck.h"
#include "tests/model/SamplePuzzle.h"

namespace {

class PuzzleDamage : public ::testing::Test, protected SavedSample {
 protected:
  /// Loads the bytes; whatever comes of it, the grids are sound and a failure has a reason.
  bool load(const std::string& bytes, bool toEditor) {
    disk.files["damaged.qzl"] = bytes;
    const bool loaded = basTiles::LoadPuzzle("damaged.qzl", toEditor);
    EXPECT_EQ(loaded, basTiles::LastFileError.empty());
    expectSoundGrid(windows.editor.grid);
    expectSoundGrid(windows.board.grid);
    expectSoundGrid(windows.tray.grid);
    return loaded;
  }

  /// A loaded puzzle comes back from a save as it was loaded, and its save is its own save.
  void expectStableSave() {
    ASSERT_TRUE(basTiles::SavePuzzle("first.qzl", windows.editor));
    ASSERT_TRUE(basTiles::LoadPuzzle("first.qzl", true)) << basTiles::LastFileError;
    ASSERT_TRUE(basTiles::SavePuzzle("second.qzl", windows.editor));
    EXPECT_EQ(disk.files["first.qzl"], disk.files["second.qzl"]);
    disk.files.erase("first.qzl");
    disk.files.erase("second.qzl");
  }
};

TEST_F(PuzzleDamage, EveryTruncationNamesTheMissingByte) {
  for (std::size_t length = 0; length < sample.size(); ++length) {
    for (const bool toEditor : {false, true}) {
      EXPECT_FALSE(load(sample.substr(0, length), toEditor));
      EXPECT_EQ(basTiles::LastFileError,
                "The file ends too early: byte " + std::to_string(length) + " is missing.");
    }
  }
  EXPECT_TRUE(load(sample, true));
  expectStableSave();
  EXPECT_EQ(disk.files["sample.qzl"], sample);
}

void mutate(std::string& bytes, std::mt19937& random) {
  constexpr std::size_t kSignature = 26, kCount = 431;
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (std::size_t i = 1 + below(4); i-- > 0;) {
    // Mostly behind the signature: a file with another one is looked at no further.
    const std::size_t from = below(10) == 0 ? 0 : below(2) == 0 ? kSignature : kCount;
    const std::size_t at = from + below(bytes.size() - from);
    switch (below(4)) {
      case 0:
        bytes[at] = static_cast<char>(random());
        break;
      case 1:
        bytes[at] = static_cast<char>(bytes[at] ^ 1 << below(8));
        break;
      case 2:
        bytes.insert(at, 1 + below(12), static_cast<char>(random()));
        break;
      default:
        bytes[at] = "\0\x01\x7F\x80\xFF"[below(5)];
        break;
    }
  }
  if (below(8) == 0 && bytes.size() > kCount) bytes.resize(kCount + below(bytes.size() - kCount));
}

TEST_F(PuzzleDamage, RandomDamageNeverHarmsTheGrids) {
  constexpr unsigned kSeed = 4711;
  SCOPED_TRACE(kSeed);
  std::mt19937 random(kSeed);
  int loaded = 0;
  for (int round = 0; round < 4000 && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    std::string bytes = sample;
    mutate(bytes, random);
    basTiles::fRandomRotation = basTiles::fRandomFlip = random() % 2 == 0;
    load(bytes, false);
    if (!load(bytes, true)) continue;
    ++loaded;
    expectStableSave();
  }
  EXPECT_GT(loaded, 400);  // enough of them got through to the pieces
}

}  // namespace
