#include <QImage>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "solver/Placement.h"
#include "tests/tool/ToolFixture.h"

namespace fs = std::filesystem;

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
  expectDone({"check", path("valid.qzl")});
  EXPECT_EQ(out_, "");
  expectDone({"make", "--locked", "-", "-"}, "#####\n");
  EXPECT_EQ(puzzle::readPuzzleFile(out_).lockFlag, 'L');
}

TEST_F(PuzzleTool, WritesThroughLinksAndLeavesNothingBesideWhatItCannotWrite) {
  // Seen: a device or a link gave its name up to a new file, and a full disk kept half of one.
  fs::create_symlink("/dev/full", path("full"));
  fs::create_symlink(path("real.qzl"), path("link.qzl"));
  expectRefused(path("full") + ": No space left on device.", {"make", "-", path("full")}, kHolder);
  expectDone({"make", "-", path("link.qzl")}, kHolder);
  expectDone({"check", path("real.qzl")});
  EXPECT_TRUE(fs::is_symlink(path("full")) && fs::is_symlink(path("link.qzl")));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 3);
}

TEST_F(PuzzleTool, KeepsToTheLettersOfADrawing) {
  const std::string drawing = "pieces: FIILPPX\n\nPPPPP\nPPPPP\nIIIII\nIIIII\n";
  expectDone({"make", "-", path("letters.qzl")}, drawing);
  expectDone({"show", path("letters.qzl")});
  EXPECT_EQ(out_, "pieces: IIPP\n\nPPPPP\nPPPPP\nIIIII\nIIIII\n");
  const std::string shown = out_;
  ASSERT_EQ(run({"show", "-"}, shown), puzzle::kDone) << "what show draws is a drawing";
  EXPECT_EQ(out_, shown);
  ASSERT_EQ(run({"solve", "-"}, "pieces: IL\n\n#####\nIIIII\n"), puzzle::kNo);
  expectDone({"show", "--json", path("letters.qzl")});
  EXPECT_PRED2(holds, out_, "{\"letter\": \"I\", \"x\": 4, \"y\": 7, \"rotations\": 0");
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
    EXPECT_PRED2(holds, err_, reason);
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
    EXPECT_PRED2(holds, out_, damage.problem);
  }
  for (std::size_t length = 0; length < valid.size(); ++length)
    ASSERT_EQ(run({"check", "-"}, valid.substr(0, length)), puzzle::kNo) << length;
}

TEST_F(PuzzleTool, SolvesAndCounts) {
  const std::string row = std::string(20, '#') + "\n", narrow = row + row + row;
  expectDone({"solve", "--count", "--up-to-symmetry", "-"}, narrow);
  EXPECT_PRED2(begins, out_, "2 solutions, ");
  expectDone({"solve", "-"}, kHolder);
  EXPECT_EQ(puzzle::readDrawing(out_).headers.at("pieces"), "LPWY");
  EXPECT_EQ(run({"solve", "--pieces=XXXX", "-"}, kHolder), puzzle::kNo);
  expectDone({"prove", "-"}, "pieces: all\n\n" + narrow);
  EXPECT_PRED2(holds, out_, "| - | 12 FILNPTUVWXYZ | 2 |");
}

TEST_F(PuzzleTool, CountsAnyNumberOfPiecesAndFromAPosition) {
  const std::string wide = "\n" + boxOf(18, 5, '#');
  expectDone({"solve", "--count", "--repeats", "--pieces=FUN", "-"}, wide);
  EXPECT_PRED2(begins, out_, "200 solutions, ");
  expectDone({"solve", "--count", "--repeats", "-"}, "pieces: YUX\n" + wide);
  EXPECT_PRED2(begins, out_, "1267 solutions, ");
  EXPECT_EQ(run({"solve", "--count", "--repeats", "-"}, "\n" + boxOf(60, 5, '#')),
            puzzle::kTooLarge);
  EXPECT_PRED2(begins, out_, "at least 340282366920938463463374607431768211455 solutions");

  expectDone({"solve", "-"}, "\n" + boxOf(20, 3, '#'));
  std::string position = "pieces: all\n" + out_.substr(out_.find("\n\n"));
  for (std::size_t i = position.find("\n\n"); i < position.size(); ++i)
    if (std::isalpha(position[i]) != 0 && position[i] != 'X') position[i] = '#';
  expectDone({"solve", "--count", "-"}, position);
  EXPECT_PRED2(begins, out_, "4 solutions, ");  // both known ones, and mirrored
  expectDone({"solve", "--all", "--up-to-symmetry", "-"}, position);
  EXPECT_PRED2(holds, out_, "\n2 solutions, ");
}

TEST_F(PuzzleTool, GeneratesWhatIsAskedForAndRepeatsASeed) {
  const std::vector<std::string> words{"generate",  "--number=5", "--unique", "--symmetric",
                                       "--width=7", "--height=6", "--seed=3"};
  expectDone(words);
  const std::string first = out_;
  const puzzle::Drawing drawing = puzzle::readDrawing(first);
  EXPECT_EQ(drawing.shape.area(), 25);
  const solver::Shape shape = drawing.shape.trimmed();
  EXPECT_EQ(shape.transformed({0, true}), shape);
  EXPECT_LE(shape.width(), 7);
  EXPECT_LE(shape.height(), 6);
  expectDone({"solve", "--count", "--up-to-symmetry", "-"}, first);
  EXPECT_PRED2(begins, out_, "1 solution,");
  expectDone(words);
  EXPECT_EQ(out_, first);
  EXPECT_EQ(run({"generate", "--number=15", "--width=5"}), puzzle::kWrongUse);
}

TEST_F(PuzzleTool, PaintsTexturesAndWhiteLines) {
  expectDone({"render", "--tile=64", "-", path("board.png")}, "IIIII\nPPPPP\nPPPPP\n");
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

TEST_F(PuzzleTool, NamesAPuzzleInAFolderByItsTitleAndSparesALockedOne) {
  for (const auto& [drawing, file] :
       std::vector<std::pair<std::string, std::string>>{{"My shape\n\nIIIII\n", "My shape.qzl"},
                                                        {"Puzzle #1\n\nIIIII\n", "Puzzle #1.qzl"},
                                                        {"title: .a/b\nIIIII\n", "a-b.qzl"}}) {
    expectDone({"make", "-", folder_.string()}, drawing);
    EXPECT_TRUE(fs::exists(folder_ / file)) << err_;
  }
  // "Lily" is made of letters of pieces.
  putBytes(path("flower.txt"), "Lily\n\n#####\n");
  expectRefused("\"title: Lily\"", {"make", path("flower.txt"), folder_.string()});

  const std::string file = path("locked.qzl");
  expectDone({"make", "--locked", "-", file}, kHolder);
  const std::string locked = bytesOf(file);
  EXPECT_EQ(run({"make", "-", file}, kHolder), puzzle::kNo);
  EXPECT_EQ(run({"generate", file}), puzzle::kNo);
  EXPECT_EQ(bytesOf(file), locked);
  expectDone({"make", "--locked", "-", file}, kHolder);
}

TEST_F(PuzzleTool, CountsTheSameWayWithAndWithoutATable) {
  // Seen: `prove` took the pieces of the first tiling, and --repeats was lost beside --pieces.
  const std::string box = "#####\n#####\n#####\n";
  const auto agree = [&](const std::vector<std::string>& options, const std::string& pieces) {
    std::vector<std::string> table{"prove", "-"},
        count{"solve", "--count", "--up-to-symmetry", "-"};
    table.insert(table.end(), options.begin(), options.end());
    count.insert(count.end(), options.begin(), options.end());
    expectDone(count, box);
    const std::string number = out_.substr(0, out_.find(' '));
    expectDone(table, box);
    EXPECT_PRED2(holds, out_, "| - | " + pieces + " | " + number + " | ");
  };
  agree({}, "3 of 12 FILNPTUVWXYZ");
  agree({"--pieces=IP", "--repeats"}, "3 of 6 IIIPPP");
}
