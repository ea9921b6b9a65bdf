// Feeds command lines to the puzzle tool: a line is a word, and what stands behind an empty line is
// the standard input. Each ends with one of the four codes, and whatever does not succeed says why.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>

#include "tests/fuzz/Claims.h"
#include "tool/CommandLine.h"

namespace {

/// Goes into a folder that is no more: no file can be opened or made there by a relative name.
void leaveTheDisk() {
  std::array<char, 32> folder{"/tmp/nothing-XXXXXX"};
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  ASSERT_EQ(chdir(folder.data()), 0);
  ASSERT_EQ(rmdir(folder.data()), 0);
}

/// The words up to an empty line, none of which names a place outside.
std::vector<std::string> wordsFrom(std::istream& in) {
  std::vector<std::string> words;
  for (std::string word; std::getline(in, word) && !word.empty();) {
    std::erase(word, '/');
    words.push_back(word);
  }
  return words;
}

/// Replaces wishes for more than a moment's work.
void hurry(std::vector<std::string>& words) {
  const auto command = std::ranges::find(puzzle::commands(), words.front(), &puzzle::Command::name);
  if (command == puzzle::commands().end()) return;
  for (const std::string_view quick : {"--limit=2000", "--tries=20", "--tile=4"}) {
    const std::string_view name = quick.substr(0, quick.find('='));
    std::erase_if(words, [&](const std::string& word) { return word.starts_with(name); });
    if (std::ranges::count(command->options, name.substr(2), &puzzle::OptionSpec::name) > 0)
      words.insert(words.begin() + 1, std::string(quick));
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  leaveTheDisk();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  stopAtBrokenClaims();
  std::istringstream in(textOf(data, size));
  std::vector<std::string> words = wordsFrom(in);
  if (!words.empty()) hurry(words);
  std::ostringstream out, talk;
  puzzle::Environment environment{in, out, talk, QUINZOLITH_SOURCE_DIR};
  const int code = puzzle::run(words, environment);
  EXPECT_LE(code, puzzle::kTooLarge);
  EXPECT_TRUE(code == puzzle::kDone || talk.str().size() + out.str().size() > 0);
  return 0;
}
