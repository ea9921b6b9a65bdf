#include <algorithm>
#include <iterator>

#include "tests/tool/ToolFixture.h"

namespace fs = std::filesystem;

namespace {

/// The text without line breaks, as the help wraps it.
std::string inOneLine(std::string_view text) {
  std::istringstream in{std::string(text)};
  std::string result;
  for (std::string word; in >> word;) result += word + " ";
  return result;
}

std::string sourceOf(const std::string& file) {
  return bytesOf(fs::path(QUINZOLITH_SOURCE_DIR) / file);
}

}  // namespace

TEST_F(PuzzleTool, TellsWrongUseAndWhatToTry) {
  const auto refused = [&](const std::vector<std::string>& words, const std::string& complaint,
                           const std::string& help) {
    EXPECT_EQ(run(words, "#####\n"), puzzle::kWrongUse);
    EXPECT_EQ(out_, "");
    EXPECT_PRED2(holds, err_, complaint);
    EXPECT_PRED2(holds, err_, "Try quinzolith-puzzle " + help + ".\n");
  };
  refused({}, "No command", "--help");
  refused({"fly"}, "no command fly", "--help");
  refused({"-x"}, "no option -x.", "--help");
  refused({"help", "fly"}, "no command fly", "--help");
  refused({"--completion", "tcsh"}, "bash|zsh|fish", "--help");
  refused({"solve"}, "wants the arguments", "solve --help");
  refused({"solve", "-", "-"}, "wants the arguments", "solve --help");
  refused({"solve", "-x", "-"}, "no option -x.", "solve --help");
  refused({"solve", "--fast=1", "-"}, "no option --fast.", "solve --help");
  refused({"solve", "--limit=many", "-"}, "whole number", "solve --help");
  refused({"solve", "--count=1", "-"}, "takes no value", "solve --help");
  refused({"solve", "--up-to-symmetry", "-"}, "--count or --all", "solve --help");
  refused({"make", "--pieces"}, "wants a value", "make --help");
}

TEST_F(PuzzleTool, NotesOptionsWithoutEffect) {
  expectDone({"show", "--json", "--color", "-"}, "#####\n");
  EXPECT_PRED2(holds, err_, "--color has no effect");
  EXPECT_EQ(run({"render", "--columns=2", "--pieces", "I", "-", "-"}, "#####\n"),
            puzzle::kWrongUse);
  expectDone({"solve", "--pieces", "I", "--repeats", "-"}, "#####\n");
  EXPECT_FALSE(holds(err_, "--pieces")) << err_;
}

TEST_F(PuzzleTool, TakesFilesWhoseNamesBeginWithADash) {
  putBytes(path("--odd"), "#####\n");
  const fs::path before = fs::current_path();
  fs::current_path(folder_);
  expectDone({"solve", "--", "--odd"});
  fs::current_path(before);
  EXPECT_EQ(run({"solve", path("missing.txt")}), puzzle::kNo);
}

TEST_F(PuzzleTool, HelpManualAndCompletionsNameEveryOption) {
  expectDone({"--man"});
  const std::string manual = out_;
  std::string completions[3];
  for (int shell = 0; shell < 3; ++shell) {
    expectDone({"--completion", puzzle::wordsOf(puzzle::kShells)[std::size_t(shell)]});
    completions[shell] = out_;
  }
  expectDone({"-h"});
  const std::string help = out_;
  for (const puzzle::Command& command : puzzle::commands()) {
    const std::string name(command.name);
    EXPECT_TRUE(holds(inOneLine(help), name + " " + inOneLine(command.summary))) << name;
    expectDone({name, "-h"});
    const std::string own = out_;
    expectDone({"help", name});
    EXPECT_EQ(out_, own);
    EXPECT_TRUE(holds(manual, ".SS \"" + name));
    for (const puzzle::OptionSpec& option : command.options) {
      EXPECT_TRUE(holds(inOneLine(own), inOneLine(option.text))) << option.name;
      for (const std::string& script : completions)
        EXPECT_TRUE(holds(script, std::string(option.name))) << option.name;
    }
  }
}

TEST_F(PuzzleTool, RunsTheExamplesOfTheDocuments) {
  const fs::path before = fs::current_path();
  fs::create_directories(folder_ / "puzzles");
  fs::create_directories(folder_ / "new");
  fs::copy(fs::path(QUINZOLITH_SOURCE_DIR) / "puzzles/rocket.qzl", folder_ / "puzzles");
  fs::current_path(folder_);
  for (const char* document : {"README.md", "docs/drawings.md", "docs/rating.md"}) {
    std::istringstream lines(sourceOf(document));
    std::string drawing, text;
    int examples = 0;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("```drawing ")) {
        drawing = line.substr(11);
        text.clear();
      } else if (line == "```" && !drawing.empty()) {
        putBytes(drawing, text);
        drawing.clear();
      } else if (!drawing.empty()) {
        text += line + "\n";
      } else if (line.starts_with("quinzolith-puzzle ")) {
        std::istringstream in(line.substr(line.find(' ')));
        const std::vector<std::string> words{std::istream_iterator<std::string>(in), {}};
        EXPECT_EQ(run(words), puzzle::kDone) << document << ": " << line << "\n" << err_;
        ++examples;
      }
    }
    EXPECT_GT(examples, 0) << document;
  }
  fs::current_path(before);
}
