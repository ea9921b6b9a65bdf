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

inline bool holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}
inline bool begins(const std::string& text, const std::string& part) {
  return text.starts_with(part);
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
  void expectDone(const std::vector<std::string>& words, const std::string& input = {}) {
    EXPECT_EQ(run(words, input), puzzle::kDone) << words[0] << ": " << err_;
  }
  void expectRefused(const std::string& reason, const std::vector<std::string>& words,
                     const std::string& input = {}) {
    EXPECT_EQ(run(words, input), puzzle::kNo) << words[0];
    EXPECT_PRED2(holds, err_, reason);
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  /// A valid puzzle file of the 6 x 10 box.
  std::string validFile() {
    expectDone({"make", "-", path("valid.qzl")}, "\n" + boxOf(10, 6, '#'));
    return bytesOf(path("valid.qzl"));
  }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("puzzle-tool-") + testing::UnitTest::GetInstance()->current_test_info()->name());
  std::string out_, err_;
};
