#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QImage>
#include <sstream>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "solver/Placement.h"
#include "tests/files/FileBytes.h"
#include "tool/CommandLine.h"

namespace fs = std::filesystem;

namespace {

std::string boxOf(std::size_t width, int height, char cell) {
  std::string rows;
  for (int row = 0; row < height; ++row) rows += std::string(width, cell) + "\n";
  return rows;
}

constexpr const char* kHolder = "title: Holder\npieces: LPWY\n\n#####\n#####\n#####\n#####\n";

/// Runs the tool in-process, its files in a folder of the test's own.
class PuzzleTool : public testing::Test {
 protected:
  void SetUp() override { fs::create_directories(folder_); }
  void TearDown() override { fs::remove_all(folder_); }

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

  fs::path folder_ =
      fs::temp_directory_path() /
      (std::string("puzzle-tool-") + testing::UnitTest::GetInstance()->current_test_info()->name());
  std::string out_, err_;
};

}  // namespace

TEST_F(PuzzleTool, MakesAFileThatIsValidCentredAndUnlocked) {
  const std::string bytes = validFile();
  EXPECT_EQ(bytes.size(), 435u + 120u);
  const puzzle::PuzzleFile file = puzzle::readPuzzleFile(bytes);
  EXPECT_EQ(file.lockFlag, 'U');
  EXPECT_EQ(file.version.revision, QUINZOLITH_VERSION_REVISION);
  EXPECT_EQ(file.shape().trimmed(), solver::Shape::rectangle(10, 6));
  EXPECT_TRUE(file.shape().contains({2, 4}));   // 12 - 10 = 2 free columns, one each side
  EXPECT_TRUE(file.shape().contains({11, 9}));  // 12 - 6 = 6 free rows, three each side
  EXPECT_EQ(puzzle::piecesOf(file.solution()), solver::PieceSet::ofEach(1));
  EXPECT_EQ(run({"check", path("valid.qzl")}), puzzle::kDone);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(run({"make", "--locked", "-", "-"}, "#####\n"), puzzle::kDone);
  EXPECT_EQ(puzzle::readPuzzleFile(out_).lockFlag, 'L');
}

TEST_F(PuzzleTool, WritesThroughLinksAndLeavesNothingBesideWhatItCannotWrite) {
  // Seen: a device or a link gave its name up to a new file, and a full disk kept half of one.
  fs::create_symlink("/dev/full", path("full"));
  fs::create_symlink(path("real.qzl"), path("link.qzl"));
  fs::create_directory(path("folder"));
  for (const auto& [name, reason] : {std::pair{"full", "No space left on device."},
                                     {"folder", "This is not an ordinary file."}}) {
    EXPECT_EQ(run({"make", "-", path(name)}, kHolder), puzzle::kNo);
    EXPECT_NE(err_.find(path(name) + ": " + reason), std::string::npos) << err_;
  }
  EXPECT_EQ(run({"make", "-", path("link.qzl")}, kHolder), puzzle::kDone) << err_;
  EXPECT_EQ(run({"check", path("real.qzl")}), puzzle::kDone) << out_;
  EXPECT_TRUE(fs::is_symlink(path("full")) && fs::is_symlink(path("link.qzl")));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 4);
}

TEST_F(PuzzleTool, SavesAsTheGameDoes) {
  // Seen: "NAME.new" was followed, waited for or lost; modes changed; a long name was refused.
  const std::string old = path("old.qzl"), fixed = path("fixed.qzl"), longest(251, 'n');
  for (const std::string& file : {old, fixed, old + ".new"}) putBytes(file, "old");
  ASSERT_EQ(::mkfifo((fixed + ".new").c_str(), 0600), 0);
  fs::permissions(old, fs::perms{0600});
  fs::permissions(fixed, fs::perms{0444});
  EXPECT_EQ(run({"make", "-", old}, kHolder), puzzle::kDone) << err_;
  EXPECT_EQ(fs::status(old).permissions(), fs::perms{0600});
  EXPECT_EQ(bytesOf(old + ".new"), "old");
  EXPECT_EQ(run({"make", "-", fixed}, kHolder), puzzle::kNo);
  EXPECT_NE(err_.find(fixed + ": The file is read-only."), std::string::npos) << err_;
  EXPECT_EQ(bytesOf(fixed), "old");
  EXPECT_EQ(run({"make", "-", path(longest + ".qzl")}, kHolder), puzzle::kDone) << err_;
}

TEST_F(PuzzleTool, ReadsNoMoreThanADrawingOrAPuzzleCanBe) {
  const std::string largest(std::size_t{1} << 20, '\n');
  EXPECT_EQ(run({"show", "-"}, largest), puzzle::kNo);
  EXPECT_EQ(err_.find("MiB"), std::string::npos) << err_;
  putBytes(path("larger"), largest + "\n");
  for (const std::string& name : {std::string("/dev/zero"), path("larger")}) {
    EXPECT_EQ(run({"show", name}), puzzle::kNo);
    EXPECT_NE(err_.find(name + ": Neither a drawing nor a puzzle is larger than 1 MiB."),
              std::string::npos)
        << err_;
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
  EXPECT_NE(err_.find("901 million pixels; the largest tile that will do is --tile=8."),
            std::string::npos)
      << err_;
  EXPECT_FALSE(fs::exists(path("large.png")));
  putBytes(path("box.txt"), "\n" + boxOf(40, 30, '#'));
  EXPECT_EQ(run({"render", "--tile=7", path("box.txt"), path("box.png")}), puzzle::kDone) << err_;
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

TEST_F(PuzzleTool, KeepsToTheLettersOfADrawing) {
  const std::string drawing = "pieces: FIILPPX\n\nPPPPP\nPPPPP\nIIIII\nIIIII\n";
  ASSERT_EQ(run({"make", "-", path("letters.qzl")}, drawing), puzzle::kDone) << err_;
  ASSERT_EQ(run({"show", path("letters.qzl")}), puzzle::kDone);
  EXPECT_EQ(out_, "pieces: IIPP\n\nPPPPP\nPPPPP\nIIIII\nIIIII\n");
  const std::string shown = out_;
  ASSERT_EQ(run({"show", "-"}, shown), puzzle::kDone) << "what show draws is a drawing";
  EXPECT_EQ(out_, shown);
  ASSERT_EQ(run({"solve", "-"}, "pieces: IL\n\n#####\nIIIII\n"), puzzle::kNo);
  ASSERT_EQ(run({"show", "--json", path("letters.qzl")}), puzzle::kDone);
  EXPECT_NE(out_.find("{\"letter\": \"I\", \"x\": 4, \"y\": 7, \"rotations\": 0"),
            std::string::npos)
      << out_;
}

TEST_F(PuzzleTool, SaysWhyAShapeIsNoPuzzle) {
  const std::string sixty(60, '#');
  for (const auto& [drawing, reason] : std::vector<std::pair<std::string, std::string>>{
           {"####\n", "4 cells"},
           {"#?###\n", "column 2"},
           {"\n\n", "no cells"},
           {"pieces: X\n\n#####\n", "pieces X"},
           {"pieces: XB\n\n#####\n", "'B'"},
           {sixty + "\n" + sixty, "24 pieces"},
           {"LLLL........\nL...\n" + std::string(13, '\n') + "#####\n", "12 x 12"}}) {
    EXPECT_EQ(run({"make", "-", path("none.qzl")}, drawing), puzzle::kNo);
    EXPECT_FALSE(fs::exists(path("none.qzl")));
    EXPECT_NE(err_.find(reason), std::string::npos) << err_;
  }
}

TEST_F(PuzzleTool, FindsEachKindOfDamage) {
  const std::string valid = validFile();
  struct Damage {
    std::size_t offset;
    std::string bytes;
    const char* problem;
  };
  for (const Damage& damage : {Damage{0, "q", "signature"},
                               {38, "u", "lock flag"},
                               {39, std::string(1, '\0'), "other than 0"},
                               {434, "\1", "impossible number"},
                               {431, "\13", "disagree"},
                               {435, "\14", "unknown type"},
                               {438, "\177", "out of the playing area"},
                               {435, valid.substr(445, 10), "overlaps"}}) {
    std::string bytes = valid;
    bytes.replace(damage.offset, damage.bytes.size(), damage.bytes);
    EXPECT_EQ(run({"check", "-"}, bytes), puzzle::kNo) << damage.problem;
    EXPECT_NE(out_.find(damage.problem), std::string::npos) << out_;
  }
  for (std::size_t length = 0; length < valid.size(); ++length)
    ASSERT_EQ(run({"check", "-"}, valid.substr(0, length)), puzzle::kNo) << length;
}

TEST_F(PuzzleTool, SolvesAndCounts) {
  const std::string row = std::string(20, '#') + "\n", narrow = row + row + row;
  EXPECT_EQ(run({"solve", "--count", "--up-to-symmetry", "-"}, narrow), puzzle::kDone);
  EXPECT_TRUE(out_.starts_with("2 solutions, ")) << out_;
  ASSERT_EQ(run({"solve", "-"}, kHolder), puzzle::kDone) << err_;
  EXPECT_EQ(puzzle::readDrawing(out_).headers.at("pieces"), "LPWY");
  EXPECT_EQ(run({"solve", "--pieces=XXXX", "-"}, kHolder), puzzle::kNo);
  EXPECT_EQ(run({"prove", "-"}, "pieces: all\n\n" + narrow), puzzle::kDone);
  EXPECT_NE(out_.find("| - | 12 FILNPTUVWXYZ | 2 |"), std::string::npos) << out_;
}

TEST_F(PuzzleTool, CountsAnyNumberOfPiecesAndFromAPosition) {
  const std::string wide = "\n" + boxOf(18, 5, '#');
  EXPECT_EQ(run({"solve", "--count", "--repeats", "--pieces=FUN", "-"}, wide), puzzle::kDone);
  EXPECT_TRUE(out_.starts_with("200 solutions, ")) << out_;
  EXPECT_EQ(run({"solve", "--count", "--repeats", "-"}, "pieces: YUX\n" + wide), puzzle::kDone);
  EXPECT_TRUE(out_.starts_with("1267 solutions, ")) << out_;
  EXPECT_EQ(run({"solve", "--count", "--repeats", "-"}, "\n" + boxOf(60, 5, '#')),
            puzzle::kTooLarge);
  EXPECT_TRUE(out_.starts_with("at least 340282366920938463463374607431768211455 solutions"))
      << out_;

  ASSERT_EQ(run({"solve", "-"}, "\n" + boxOf(20, 3, '#')), puzzle::kDone);
  std::string position = "pieces: all\n" + out_.substr(out_.find("\n\n"));
  for (std::size_t i = position.find("\n\n"); i < position.size(); ++i)
    if (std::isalpha(position[i]) != 0 && position[i] != 'X') position[i] = '#';
  ASSERT_EQ(run({"solve", "--count", "-"}, position), puzzle::kDone) << err_;
  EXPECT_TRUE(out_.starts_with("4 solutions, ")) << out_;  // both known ones, and mirrored
  ASSERT_EQ(run({"solve", "--all", "--up-to-symmetry", "-"}, position), puzzle::kDone) << err_;
  EXPECT_NE(out_.find("\n2 solutions, "), std::string::npos) << out_;
}

TEST_F(PuzzleTool, GeneratesWhatIsAskedForAndRepeatsASeed) {
  const std::vector<std::string> words{"generate",  "--number=5", "--unique", "--symmetric",
                                       "--width=7", "--height=6", "--seed=3"};
  ASSERT_EQ(run(words), puzzle::kDone) << err_;
  const std::string first = out_;
  const puzzle::Drawing drawing = puzzle::readDrawing(first);
  EXPECT_EQ(drawing.shape.area(), 25);
  const solver::Shape shape = drawing.shape.trimmed();
  EXPECT_EQ(shape.transformed({0, true}), shape);
  EXPECT_LE(shape.width(), 7);
  EXPECT_LE(shape.height(), 6);
  EXPECT_EQ(run({"solve", "--count", "--up-to-symmetry", "-"}, first), puzzle::kDone);
  EXPECT_TRUE(out_.starts_with("1 solutions")) << out_;
  ASSERT_EQ(run(words), puzzle::kDone);
  EXPECT_EQ(out_, first);
  EXPECT_EQ(run({"generate", "--number=15", "--width=5"}), puzzle::kWrongUse);
}

TEST_F(PuzzleTool, PaintsTexturesAndWhiteLines) {
  ASSERT_EQ(run({"render", "--tile=64", "-", path("board.png")}, "IIIII\nPPPPP\nPPPPP\n"),
            puzzle::kDone)
      << err_;
  const QImage image(QString::fromStdString(path("board.png")));
  ASSERT_EQ(image.size(), QSize(5 * 64, 3 * 64));
  const QImage atlas(
      QString::fromStdString(std::string(QUINZOLITH_SOURCE_DIR) + "/tiles/tiles.jpg"));
  EXPECT_EQ(image.pixelColor(10, 20), atlas.pixelColor(64 + 10, 20));                     // I is 1
  EXPECT_EQ(image.pixelColor(4 * 64 + 9, 2 * 64 + 9), atlas.pixelColor(64 + 9, 64 + 9));  // P is 5
  EXPECT_EQ(image.pixelColor(30, 64), QColor(Qt::white));      // between the pieces
  EXPECT_EQ(image.pixelColor(30, 64 - 1), QColor(Qt::white));  // on both sides
  EXPECT_NE(image.pixelColor(64, 30), QColor(Qt::white));      // but not within one
  EXPECT_EQ(image.pixelColor(30, 0), QColor(Qt::white));       // and along the shape's edge
}

TEST_F(PuzzleTool, TellsWrongUse) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{},
                                             {"fly"},
                                             {"solve"},
                                             {"solve", "--fast", "-"},
                                             {"solve", "-", "-"},
                                             {"solve", "--limit=many", "-"},
                                             {"solve", "--count=1", "-"},
                                             {"solve", "--up-to-symmetry", "-"},
                                             {"make", "--pieces"}}) {
    EXPECT_EQ(run(words, "#####\n"), puzzle::kWrongUse);
    EXPECT_EQ(out_, "");
    EXPECT_NE(err_, "");
  }
  putBytes(path("--odd"), "#####\n");
  const fs::path before = fs::current_path();
  fs::current_path(folder_);
  EXPECT_EQ(run({"solve", "--", "--odd"}), puzzle::kDone) << err_;
  fs::current_path(before);
  EXPECT_EQ(run({"solve", path("missing.txt")}), puzzle::kNo);
}

TEST_F(PuzzleTool, HelpAndManualNameEveryOption) {
  ASSERT_EQ(run({"--man"}), puzzle::kDone);
  const std::string manual = out_;
  for (const puzzle::Command& command : puzzle::commands()) {
    ASSERT_EQ(run({std::string(command.name), "--help"}), puzzle::kDone);
    EXPECT_NE(manual.find(".SS \"" + std::string(command.name)), std::string::npos);
    for (const puzzle::Option& option : command.options)
      EXPECT_NE(out_.find(option.text), std::string::npos) << option.name;
  }
}
