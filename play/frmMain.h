#pragma once

#include <QAction>
#include <QFrame>
#include <QMenu>
#include <QPointer>
#include <QRegion>
#include <memory>

#include "board/CarryHint.h"
#include "board/PENTOWINDOW.h"
#include "model/PENTOGRID.h"
#include "platform/Dialogs.h"
#include "platform/Form.h"
#include "play/Hint.h"
#include "play/PlayWindows.h"
#include "sound/TunePlayer.h"

/// The play window: the tray with the loose pieces on the left, the board with the puzzle on the
/// right. It owns both grids, hands a carried piece from one control to the other, and notices when
/// the board is full.
class frmMain : public Form {
 public:
  static constexpr std::int16_t kTrayWidth = 9;  ///< cells
  static constexpr std::int16_t kTrayHeight = 36;

  explicit frmMain(PlayWindows& windows);
  ~frmMain() override;

  /// Lets the player pick a puzzle file and loads it for play. False when the dialog was cancelled
  /// or the file was refused; a refusal has been shown by then.
  bool OpenFile();

  /// Unloads the window from a dialog that it waits for.
  void UnloadFromDialog();

  /// The cells of the puzzle's shape on the screen, logical pixels.
  QRegion ShapeOnScreen() const;

  /// Set by another window just before it closes this one while this one waits for it: after the
  /// dialog returns, no control is touched.
  bool fCancelLoad = false;

  QPointer<PENTOWINDOW> Grid;        ///< the board; it comes and goes with the window
  QPointer<PENTOWINDOW> PentoPanel;  ///< the tray, likewise

 protected:
  void BuildControls() override;
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_Unload(bool& Cancel) override;

 private:
  // menus
  void buildMenus();
  void buildFileMenu();
  void buildSoundMenu();
  void buildViewMenu();
  void buildHelpMenu();
  void askForHintOnF3();
  void mnuFileOpen_Click();
  void mnuViewEdit_Click();
  void mnuSound_Click(bool on);
  void mnuHelpAbout_Click();
  void showSoundSwitch();

  // layout
  void layOutTray();
  void layOutBoard();
  void dropBackgrounds();
  void showCover();

  // play
  void connectBoards();
  void relay(PENTOWINDOW& from, PENTOWINDOW& to);
  void Grid_Drop();
  void waitForChooser();

  PlayWindows& windows_;
  PENTOGRID BoardGrid_;
  PENTOGRID TrayGrid_;
  bool fActivated_ = false;

  Dialogs::FileDialog cdlgOpen_;
  QPointer<QFrame> fraCover_;
  CarryHint carryHint_;
  Hint hint_;
  QPointer<QAction> mnuSoundOn_;
  QPointer<QAction> mnuSoundOff_;
  QPointer<QMenu> mnuView_;
  std::unique_ptr<TunePlayer> musicCorrect_, musicWrong_, musicSong_;
};
