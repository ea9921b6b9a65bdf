// What readers are told in several places is what the tables of the program say.
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <filesystem>
#include <set>
#include <string>

#include "catalogue/Catalogue.h"
#include "tests/files/FileBytes.h"
#include "tool/Commands.h"

namespace {

std::string textOf(const char* file) {
  return bytesOf(std::filesystem::path(QUINZOLITH_SOURCE_DIR) / file);
}

/// What the first group of a pattern matches, from each match in a text.
std::multiset<std::string> allOf(const std::string& text, const char* pattern) {
  std::multiset<std::string> found;
  const QRegularExpression expression(pattern);
  for (auto matches = expression.globalMatch(QString::fromStdString(text)); matches.hasNext();)
    found.insert(matches.next().captured(1).toStdString());
  return found;
}

TEST(Texts, NameTheNumberOfStandardPuzzles) {
  const std::string number = std::to_string(Catalogue::entries().size());
  for (const char* file :
       {"README.md", "help/choose.html", "help/files.html", "cmake/Packages.cmake",
        "packaging/quinzolith.6.in", "packaging/org.kelvo.quinzolith.metainfo.xml.in"}) {
    const auto numbers = allOf(textOf(file), "([0-9]+)\\s+(?:standard\\s+)?puzzles");
    EXPECT_FALSE(numbers.empty()) << file;
    EXPECT_EQ(numbers.count(number), numbers.size()) << file << " has another than " << number;
  }
}

TEST(Texts, NameEachCommandOfThePuzzleTool) {
  std::multiset<std::string> names;
  for (const puzzle::Command& command : puzzle::commands()) names.emplace(command.name);
  EXPECT_EQ(allOf(textOf("help/tool.html"), "<tr><td><code>([a-z]+)</code>"), names);
  const auto inReadme = allOf(textOf("README.md"), "`(?:quinzolith-puzzle )?([a-z]+)[^`]*`");
  for (const std::string& name : names) EXPECT_TRUE(inReadme.count(name)) << "README: " << name;
}

TEST(Texts, GiveTheFiguresOfEachTune) {
  std::multiset<std::string> tunes;
  for (const char* set : {"Correct", "Wrong", "Song"})
    for (const auto& file : std::filesystem::directory_iterator(
             std::filesystem::path(QUINZOLITH_SOURCE_DIR) / "tunes" / set))
      tunes.insert(std::string(set) + '/' + file.path().stem().string());
  EXPECT_EQ(allOf(textOf("docs/tunes.md"), "\n\\| ([A-Z][a-z]+/[^ ]+) \\|"), tunes);
}

}  // namespace
