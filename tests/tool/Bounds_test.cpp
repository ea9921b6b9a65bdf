#include <sys/stat.h>

#include <QImage>
#include <fstream>

#include "tests/tool/ToolFixture.h"

// What the tool does to files, and where reading, writing and searching end.

namespace fs = std::filesystem;

TEST_F(PuzzleTool, SavesAsTheGameDoes) {
  // Seen: "NAME.new" was followed, waited for or lost; modes changed; a long name was refused.
  const std::string old = path("old.qzl"), fixed = path("fixed.qzl"), longest(251, 'n');
  for (const std::string& file : {old, fixed, old + ".new"}) putBytes(file, "old");
  ASSERT_EQ(::mkfifo((fixed + ".new").c_str(), 0600), 0);
  fs::permissions(old, fs::perms{0600});
  fs::permissions(fixed, fs::perms{0444});
  expectDone({"make", "-", old}, kHolder);
  EXPECT_EQ(fs::status(old).permissions(), fs::perms{0600});
  EXPECT_EQ(bytesOf(old + ".new"), "old");
  expectRefused(fixed + ": The file is read-only.", {"make", "-", fixed}, kHolder);
  EXPECT_EQ(bytesOf(fixed), "old");
  expectDone({"make", "-", path(longest + ".qzl")}, kHolder);
}

TEST_F(PuzzleTool, ReadsNoMoreThanADrawingOrAPuzzleCanBe) {
  const std::string largest(std::size_t{1} << 20, '\n');
  EXPECT_EQ(run({"show", "-"}, largest), puzzle::kNo);
  EXPECT_EQ(err_.find("MiB"), std::string::npos) << err_;
  putBytes(path("larger"), largest + "\n");
  for (const std::string& name : {std::string("/dev/zero"), path("larger")}) {
    expectRefused(name + ": Neither a drawing nor a puzzle is larger than 1 MiB.", {"show", name});
    EXPECT_EQ(run({"check", name}), puzzle::kNo);
  }
}

TEST_F(PuzzleTool, EndsAtOnceWhenItsOutputCannotBeWritten) {
  // Seen: the search went on behind a full disk. All solutions of this box take longer than a life.
  std::istringstream in("\n" + boxOf(20, 20, '#'));
  std::ofstream full("/dev/full");
  std::ostringstream err;
  puzzle::Environment environment{in, full, err, QUINZOLITH_SOURCE_DIR};
  EXPECT_EQ(puzzle::run({"solve", "--all", "--repeats", "-"}, environment), puzzle::kNo);
  EXPECT_NE(err.str().find("The output cannot be written."), std::string::npos) << err.str();
}

TEST_F(PuzzleTool, RefusesAPictureThatIsTooLargeBeforeItIsMade) {
  putBytes(path("large.txt"), "\n" + boxOf(1000, 998, '#'));
  EXPECT_EQ(run({"render", path("large.txt"), path("large.png")}), puzzle::kNo);
  EXPECT_PRED2(holds, err_, "901 million pixels; the largest tile that will do is --tile=8.");
  EXPECT_FALSE(fs::exists(path("large.png")));
  putBytes(path("box.txt"), "\n" + boxOf(40, 30, '#'));
  expectDone({"render", "--tile=7", path("box.txt"), path("box.png")});
  EXPECT_EQ(QImage(QString::fromStdString(path("box.png"))).size(), QSize(280, 210));
}

TEST_F(PuzzleTool, EverySearchEndsAtItsLimitAndSaysSo) {
  const std::string lettered = boxOf(23, 15, 'P'), box = "\n" + boxOf(20, 20, '#');
  putBytes(path("letters"), lettered);
  putBytes(path("box"), box);
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"show", path("letters")},
                                             {"render", path("letters"), path("picture.png")},
                                             {"solve", "--repeats", path("box")},
                                             {"solve", "--count", "--repeats", path("box")},
                                             {"prove", path("box")},
                                             {"generate", "--unique", "--number=12"}}) {
    std::vector<std::string> limited = words;
    limited.insert(limited.begin() + 1, "--limit=50");
    EXPECT_EQ(run(limited), puzzle::kNo) << words[0];
    EXPECT_NE(err_.find("limit"), std::string::npos) << words[0] << err_;
  }
}
