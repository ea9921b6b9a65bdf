#include <gtest/gtest.h>

#include "tests/model/GridCheck.h"
#include "tests/model/SamplePuzzle.h"

namespace {

class PuzzleDamage : public ::testing::Test, protected SavedSample {};

TEST_F(PuzzleDamage, EveryTruncationNamesTheMissingByte) {
  for (std::size_t length = 0; length < sample.size(); ++length) {
    disk.files["damaged.qzl"] = sample.substr(0, length);
    for (const bool toEditor : {false, true}) {
      EXPECT_FALSE(basTiles::LoadPuzzle("damaged.qzl", toEditor));
      EXPECT_EQ(basTiles::LastFileError,
                "The file ends too early: byte " + std::to_string(length) + " is missing.");
      for (const auto* target : {&windows.editor, &windows.board, &windows.tray})
        expectValidGrid(target->grid);
    }
  }
  EXPECT_TRUE(basTiles::LoadPuzzle("sample.qzl", true));
  EXPECT_TRUE(basTiles::SavePuzzle("again.qzl", windows.editor));
  EXPECT_EQ(disk.files["again.qzl"], sample);
}

}  // namespace
