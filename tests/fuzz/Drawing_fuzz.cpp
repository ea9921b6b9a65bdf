// Feeds damaged drawings to the puzzle tool: what it makes of one is a valid puzzle of that shape,
// and what it shows is a drawing that it shows again in the same way.
#include <sstream>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "tests/fuzz/Claims.h"
#include "tool/CommandLine.h"

namespace {

/// The output of a command that reads the text; nothing when it refuses.
std::optional<std::string> outputOf(const std::vector<std::string>& words,
                                    const std::string& text) {
  std::istringstream in(text);
  std::ostringstream out, talk;
  puzzle::Environment environment{in, out, talk, {}};
  const int code = puzzle::run(words, environment);
  if (code == puzzle::kDone) return out.str();
  EXPECT_EQ(code, puzzle::kNo);
  EXPECT_FALSE(talk.str().empty());
  return {};
}

std::vector<solver::Cell> shapeOf(const std::string& drawing) {
  return puzzle::readDrawing(drawing).shape.trimmed().cells();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  stopAtBrokenClaims();
  const std::string text = textOf(data, size);
  if (puzzle::isPuzzleFile(text)) return 0;  // the other target's business
  if (const auto made = outputOf({"make", "-", "-", "--limit=5000", "--quiet"}, text)) {
    EXPECT_TRUE(puzzle::problemsOf(*made).empty());
    EXPECT_EQ(puzzle::readPuzzleFile(*made).shape().trimmed().cells(), shapeOf(text));
  }
  if (const auto shown = outputOf({"show", "-"}, text)) {
    EXPECT_EQ(shapeOf(*shown), shapeOf(text));
    EXPECT_EQ(outputOf({"show", "-"}, *shown), shown);
  }
  return 0;
}
