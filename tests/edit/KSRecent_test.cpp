#include "edit/KSRecent.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <map>
#include <utility>

#include "platform/Settings.h"

namespace {

struct Items : RecentMenu {
  void SetCaption(int item, const std::string& text) override { caption[item] = text; }
  void SetVisible(int item, bool shown) override { visible[item] = shown; }
  std::map<int, std::string> caption;
  std::map<int, bool> visible;
};

class Recent : public ::testing::Test {
 protected:
  void SetUp() override { load(list_, items_); }

  static void load(KSRecent& list, Items& items) {
    list.MenuCount(4);
    list.MenuForm(items);
    list.Name("Recent Puzzles");
  }

  void add(const std::string& names) {
    for (char name : names) list_.AddRecent(std::string(1, name));
  }

  /// The entries, one letter each.
  static std::string entries(const KSRecent& list) {
    std::string all;
    for (std::int16_t i = 0; i < 4; ++i) all += list.FileName(i);
    return all;
  }

  QTemporaryDir folder_;
  Replacement<Settings::Place> settings_{
      Settings::place, Settings::Place{folder_.filePath("settings.ini").toStdString()}};
  KSRecent list_;
  Items items_;
};

TEST_F(Recent, AnEmptyListShowsNothingAndWritesNothing) {
  EXPECT_EQ(items_.visible, (std::map<int, bool>{{4, false}}));
  EXPECT_EQ(Settings::get("Kelvo Software\\Quinzolith", "Recent Puzzles", "Recent1", "none"),
            "none");
  add("a");
  EXPECT_EQ(items_.visible, (std::map<int, bool>{{0, true}, {4, true}}));
  EXPECT_EQ(items_.caption[0], "&1 a");
}

TEST_F(Recent, TheLatestIsOnTopAndTheFifthDrivesTheOldestOut) {
  add("dcba");
  EXPECT_EQ(entries(list_), "abcd");
  list_.AddRecent(list_.FileName(3));
  EXPECT_EQ(entries(list_), "dabc");
  for (const auto& [added, after] : {std::pair{"d", "dabc"},
                                     {"b", "bdac"},
                                     {"E", "Ebda"},
                                     {"e", "eEbd"}}) {  // another file than E
    add(added);
    EXPECT_EQ(entries(list_), after) << added;
  }
  EXPECT_EQ(items_.caption[3], "&4 d");
  EXPECT_EQ(Settings::get("Kelvo Software\\Quinzolith", "Recent Puzzles", "Recent4", ""), "d");

  KSRecent later;
  Items menu;
  load(later, menu);
  EXPECT_EQ(entries(later), "eEbd");
  EXPECT_EQ(menu.caption, items_.caption);
}

TEST_F(Recent, AListThatCannotBeStoredHoldsForThisRun) {
  const Replacement aFolder(Settings::place, Settings::Place{folder_.path().toStdString()});
  KSRecent list;
  Items menu;
  load(list, menu);
  list.AddRecent("a");
  list.AddRecent("b");
  EXPECT_EQ(entries(list), "ba");
  EXPECT_EQ(menu.caption[0], "&1 b");
}

TEST(Abbreviate, DropsFoldersFromTheFrontAndThenTheStartOfTheNameByCharacters) {
  std::string umlauts;
  for (int i = 0; i < 30; ++i) umlauts += "ü";
  const std::pair<std::string, std::string> cases[] = {
      {"/s/Games/Puzzles/User/ring.qzl", "/s/Games/Puzzles/User/ring.qzl"},
      {"/s/Games/Puzzles/User/rings.qzl", "../Puzzles/User/rings.qzl"},
      {"/d/Documents/My Puzzles/Shapes/Animals/dog.qzl", "../Shapes/Animals/dog.qzl"},
      {"/a/A/puzzle-with-a-very-long-name-here.qzl", "..a-very-long-name-here.qzl"},
      {"/home/somebody/puzzles/animals/dog.qzl", "../puzzles/animals/dog.qzl"},
      {umlauts, umlauts},
      {"x" + umlauts, ".." + umlauts.substr(2 * 5)}};
  for (const auto& [path, shortened] : cases) EXPECT_EQ(KSRecent::Abbreviate(path), shortened);
}

}  // namespace
