#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The menu that shows a recent-files list: its items 0 to MenuCount - 1 stand for the files, item
/// MenuCount is the separator below them. All start hidden.
class RecentMenu {
 public:
  virtual ~RecentMenu() = default;
  /// The first "&" of the text marks the item's mnemonic; any other is part of the file's name.
  virtual void SetCaption(int item, const std::string& text) = 0;
  virtual void SetVisible(int item, bool visible) = 0;
};

/// The files most recently used, the latest first, kept in the settings store and shown as numbered
/// items of a menu.
///
/// Order: MenuCount, then MenuForm, then Name, which loads the list; then the rest at any time.
/// Paths: UTF-8 texts, compared character by character. No file is looked for.
/// Store: keys "Recent1" and up in the section Name, empty values for empty entries; written by
///        AddRecent alone.
class KSRecent {
 public:
  void MenuCount(std::int16_t R);
  void MenuForm(RecentMenu& form);
  void Name(const std::string& N);

  const std::string& FileName(std::int16_t Index) const;  ///< empty: no file
  /// Puts F at the top. A file that is new to a full list drives the oldest one out.
  void AddRecent(std::string F);

  /// Shortens a path of more than 30 characters for a menu: leading folders give way to two dots,
  /// and a name that is too long by itself keeps its last 25 characters. Characters are code
  /// points; none is cut.
  static std::string Abbreviate(const std::string& T);

 private:
  void SaveList() const;
  void UpdateMenu() const;

  std::int16_t MenuCount_ = 0;
  RecentMenu* MenuForm_ = nullptr;
  std::string Name_;
  std::vector<std::string> Files_;  // MenuCount + 1 of them, the last one never used
};
