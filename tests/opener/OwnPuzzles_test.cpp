// A double-clicked puzzle on its way to the player's own.
#include "opener/OwnPuzzles.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/files/TestDisk.h"

namespace fs = std::filesystem;

namespace {

class Delivered : public ::testing::Test {
 protected:
  void SetUp() override { fs::create_directory(user); }

  static std::string shipped(const std::string& key) {
    return bytesOf(fs::path(QUINZOLITH_SOURCE_DIR) / "puzzles" / (key + ".qzl"));
  }
  fs::path sent(const std::string& name, const std::string& bytes) const {
    putBytes(top.path / name, bytes);
    return top.path / name;
  }
  fs::path deliver(const fs::path& file, bool answer = false) {
    return OwnPuzzles::add(file, user, [&](const fs::path&) {
      ++questions;
      return answer;
    });
  }
  std::string refusal(const fs::path& file) {
    try {
      deliver(file);
    } catch (const std::exception& error) {
      return error.what();
    }
    return "";
  }

  TestFolder top{"opener"};
  const fs::path user = top.path / "User";
  int questions = 0;
};

TEST_F(Delivered, ANewPuzzleIsCopiedUnderANameThatIsListed) {
  EXPECT_EQ(deliver(sent("ring.qzl", shipped("rocket"))), "ring.qzl");
  EXPECT_EQ(bytesOf(user / "ring.qzl"), shipped("rocket"));
  EXPECT_EQ(deliver(sent("Mr. Smile", shipped("plane"))), "Mr. Smile.qzl");
  EXPECT_EQ(deliver(sent(".hidden.QZL", shipped("plane"))), "hidden.QZL");
  EXPECT_EQ(questions, 0);
}

TEST_F(Delivered, WhatIsThereAlreadyIsNeitherCopiedNorAskedAbout) {
  putBytes(user / "ring.QZL", shipped("rocket"));
  EXPECT_EQ(deliver(user / "ring.QZL"), "ring.QZL");
  EXPECT_EQ(deliver(sent("ring.qzl", shipped("rocket"))), "ring.QZL");
  EXPECT_FALSE(fs::exists(user / "ring.qzl"));
  EXPECT_EQ(questions, 0);
}

TEST_F(Delivered, AnotherPuzzleOfTheNameIsReplacedOnlyAfterAYes) {
  putBytes(user / "ring.QZL", shipped("rocket"));
  const fs::path other = sent("ring.qzl", shipped("plane"));
  EXPECT_EQ(deliver(other, false), "");
  EXPECT_EQ(bytesOf(user / "ring.QZL"), shipped("rocket"));
  EXPECT_EQ(deliver(other, true), "ring.QZL");
  EXPECT_EQ(bytesOf(user / "ring.QZL"), shipped("plane"));
  EXPECT_FALSE(fs::exists(user / "ring.qzl"));
  EXPECT_EQ(questions, 2);
}

TEST_F(Delivered, AnInvalidFileIsRefusedWithTheReason) {
  const std::string invalid = "This is not a valid Quinzolith puzzle.\n";
  const std::string cut = shipped("rocket").substr(0, 300);
  for (const fs::path& file : {sent("text.qzl", "no puzzle"), sent("cut.qzl", cut)}) {
    const std::string reason = refusal(file);
    EXPECT_TRUE(reason.starts_with(invalid) && reason.size() > invalid.size()) << reason;
  }
  EXPECT_NE(refusal(top.path / "gone.qzl"), "");
  EXPECT_TRUE(fs::is_empty(user));
  fs::remove(user);
  EXPECT_EQ(refusal(sent("ring.qzl", shipped("rocket"))), "There is no folder for your puzzles.");
}

}  // namespace
