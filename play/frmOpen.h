#pragma once

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>
#include <array>
#include <filesystem>

#include "platform/Form.h"
#include "play/PlayWindows.h"
#include "play/PuzzleList.h"
#include "play/PuzzleTabs.h"

/// The dialog in which the player picks the next puzzle: one of the catalogue, one of the user's
/// own, or any puzzle file, in normal or easy mode.
class frmOpen : public Form {
 public:
  explicit frmOpen(PlayWindows& windows);

  /// The chosen puzzle is meant for the editor. Set by whoever opens the chooser.
  bool fEdit = false;

 protected:
  void BuildControls() override;
  void Form_Load() override;
  void Form_Escape() override;

 private:
  static constexpr int kTabs = 5;
  static constexpr int kOther = 4;  ///< the tab of the user's own puzzles

  void buildTabs();
  void buildButtons();
  QPushButton* addButton(const char* name, const QString& caption, double top,
                         void (frmOpen::*action)());
  void fillCatalogue();
  void fillUserPuzzles();
  void tabGames_Click();
  void cmdOk_Click();
  void cmdBrowse_Click();
  void cmdCancel_Click();
  void cmdCreate_Click();
  void cmdHelp_Click();
  void setRandom();
  static std::filesystem::path folderOf(int tab);

  PlayWindows& windows_;
  bool fEasyChecked_ = false;
  std::int16_t LastTab_ = 0;

  QPointer<PuzzleTabs> tabGames_;
  std::array<QPointer<PuzzleList>, kTabs> lvwPuzzles_;
  QPointer<QPushButton> cmdOk_;
  QPointer<QCheckBox> chkEasy_;
};
