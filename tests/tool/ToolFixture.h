#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "tests/files/FileBytes.h"
#include "tool/CommandLine.h"

/// A drawing of a box.
inline std::string boxOf(std::size_t width, int height, char cell) {
  std::string rows;
  for (int row = 0; row < height; ++row) rows += std::string(width, cell) + "\n";
  return rows;
}

inline constexpr const char* kHolder =
    "title: Holder\npieces: LPWY\n\n#####\n#####\n#####\n#####\n";

/// Runs the tool in-process, its files in a folder of the test's own.
class PuzzleTool : public testing::Test {
 protected:
  void SetUp() override { std::filesystem::create_directories(folder_); }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  int run(const std::vector<std::string>& words, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out, err;
    puzzle::Environment environment{in, out, err, QUINZOLITH_SOURCE_DIR};
    const int result = puzzle::run(words, environment);
    out_ = out.str();
    err_ = err.str();
    return result;
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  /// A valid puzzle file of the 6 x 10 box.
  std::string validFile() {
    std::string drawing = "\n";
    for (int row = 0; row < 6; ++row) drawing += "##########\n";
    EXPECT_EQ(run({"make", "-", path("valid.qzl")}, drawing), puzzle::kDone) << err_;
    return bytesOf(path("valid.qzl"));
  }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("puzzle-tool-") + testing::UnitTest::GetInstance()->current_test_info()->name());
  std::string out_, err_;
};
