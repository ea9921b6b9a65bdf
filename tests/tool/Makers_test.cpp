#include <QGuiApplication>
#include <QImage>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "solver/Solver.h"
#include "tests/tool/ToolFixture.h"
#include "tool/Generator.h"
#include "tool/Rating.h"

// Rating, inventing and printing.

namespace fs = std::filesystem;

namespace {

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

}  // namespace

TEST_F(PuzzleTool, RatesByWhatATightestPlaceSearchLays) {
  // Two pieces, one of which fits: I, then the only tiling of the rest. Nothing is laid in vain.
  const puzzle::Rating forced =
      puzzle::rate(solver::Shape::rectangle(5, 1), solver::PieceSet::ofEach(1), 100);
  EXPECT_EQ(forced.solutions, 1u);
  EXPECT_DOUBLE_EQ(forced.laid, 1);
  EXPECT_DOUBLE_EQ(forced.forced, 1);
  EXPECT_DOUBLE_EQ(forced.value(), 0);

  // All tilings of a box by all pieces are found, whatever the order in which places are filled.
  const puzzle::Rating box =
      puzzle::rate(solver::Shape::rectangle(5, 4), solver::PieceSet::ofEach(1), 1'000'000);
  EXPECT_EQ(
      box.solutions,
      solver::countSolutions({solver::Shape::rectangle(5, 4)}, solver::Counting::All).solutions);
  EXPECT_GT(box.laid, box.pieces);
  EXPECT_FALSE(
      puzzle::rate(solver::Shape::rectangle(5, 4), solver::PieceSet::ofEach(1), 10).complete);

  expectDone({"rate", "-"}, "pieces: I\n#####\n");
  EXPECT_PRED2(holds, out_, "| - | 0.0 | Novice | 1 | 1 | 1.0 | 1.0 | 0.0 |");
  EXPECT_EQ(run({"rate", "-"}, "pieces: X\n#####\n"), puzzle::kNo);
}

TEST_F(PuzzleTool, InventsShapesOfEachStyle) {
  const auto shapeOf = [&](const std::vector<std::string>& options) {
    std::vector<std::string> words{"generate", "--seed=4"};
    words.insert(words.end(), options.begin(), options.end());
    expectDone(words);
    return puzzle::readDrawing(out_).shape.trimmed();
  };
  for (const char* number : {"--number=5", "--number=6", "--number=8"}) {
    const solver::Shape both = shapeOf({"--style=both", number});
    EXPECT_EQ(both.transformed({0, true}), both);
    EXPECT_EQ(both.transformed({2, true}), both);
  }
  const solver::Shape hole = shapeOf({"--style=hole", "--number=7"});
  EXPECT_EQ(hole.area(), 35);
  int inside = 0;
  for (int x = 1; x + 1 < hole.width(); ++x)
    for (int y = 1; y + 1 < hole.height(); ++y) inside += !hole.contains({x, y});
  EXPECT_GT(inside, 0);
  const solver::Shape bar = shapeOf({"--style=glyph", "--glyph=L", "--number=6"});
  EXPECT_TRUE(bar.contains({0, 0}) && bar.contains({0, bar.height() - 1})) << out_;
  EXPECT_FALSE(bar.contains({bar.width() - 1, 0})) << out_;
  EXPECT_EQ(run({"generate", "--style=round"}), puzzle::kWrongUse);
}

TEST_F(PuzzleTool, InventsPuzzlesOfALevel) {
  expectDone({"generate", "--level=intermediate", "--seed=2"});
  expectDone({"rate", "-"}, out_);
  EXPECT_PRED2(holds, out_, "| Intermediate |");
}

TEST_F(PuzzleTool, SharesARunAndOverwritesNothing) {
  const std::string whole = path("whole"), shares = path("shares");
  fs::create_directory(whole);
  fs::create_directory(shares);
  expectDone({"generate", "--puzzles=5", "--seed=9", whole});
  for (const char* part : {"--part=1/2", "--part=2/2"})
    expectDone({"generate", "--puzzles=5", "--seed=9", part, shares});
  ASSERT_EQ(namesIn(shares), namesIn(whole));
  ASSERT_EQ(namesIn(whole).size(), 5u);
  for (const std::string& name : namesIn(whole))
    EXPECT_EQ(bytesOf(fs::path(shares) / name), bytesOf(fs::path(whole) / name)) << name;
  const fs::path first = fs::path(whole) / namesIn(whole)[0];
  putBytes(first, "kept");
  EXPECT_EQ(run({"generate", "--puzzles=5", "--seed=9", whole}), puzzle::kNo);
  EXPECT_EQ(bytesOf(first), "kept");
  EXPECT_EQ(run({"generate", "--puzzles=5", "--part=1/2", whole}), puzzle::kWrongUse);
  EXPECT_EQ(run({"generate", "--puzzles=5", "--seed=9", "--part=3/2", whole}), puzzle::kWrongUse);
  EXPECT_EQ(run({"generate", "--puzzles=5", path("none")}), puzzle::kWrongUse);
}

TEST_F(PuzzleTool, PrintsToScale) {
  // The outlines of two pieces in a box of 5 x 2 cells: each line once, in tenths of a millimetre.
  putBytes(path("pair.txt"), "title: Pair\n\nIIIII\nIIIII\n");
  expectDone({"render", "--outlines", "--cell=20", path("pair.txt"), "--format=svg", "-"});
  EXPECT_PRED2(holds, out_, "width=\"120mm\" height=\"60mm\"");
  std::size_t lines = 0;
  for (std::size_t at = 0; (at = out_.find("<polyline", at)) != std::string::npos; ++at) ++lines;
  EXPECT_EQ(lines, 5u) << out_;
}

TEST_F(PuzzleTool, PutsManyPuzzlesOnASheetOrOnPages) {
  for (const char* name : {"a.qzl", "b.qzl", "c.qzl"})
    expectDone({"make", "-", path(name)}, "pieces: IPP\nIIIII\nPPPPP\nPPPPP\n");
  EXPECT_EQ(run({"render", folder_.string(), path("one.png")}), puzzle::kWrongUse);
  expectDone({"render", "--sheet", "--tile=10", "--columns=2", "--no-titles", folder_.string(),
              path("sheet.png")});
  EXPECT_EQ(QImage(QString::fromStdString(path("sheet.png"))).size(),
            QSize(2 * 50 + 3 * 5, 2 * 30 + 3 * 5));
  expectDone({"render", "--cell=30", "--no-titles", "--paper=Letter", folder_.string(),
              path("pages.pdf")});
  const std::string pdf = bytesOf(path("pages.pdf"));
  EXPECT_TRUE(pdf.starts_with("%PDF-") && holds(pdf, "/Count 2")) << pdf.size();
  EXPECT_TRUE(holds(pdf, "612") && holds(pdf, "792"));
  expectRefused("larger than the paper",
                {"render", "--cell=100", folder_.string(), path("pages.pdf")});
}
