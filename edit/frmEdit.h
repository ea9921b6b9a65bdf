#pragma once

#include <QAction>
#include <QFrame>
#include <QPointer>
#include <array>
#include <functional>
#include <optional>

#include "board/CarryHint.h"
#include "board/PENTOWINDOW.h"
#include "edit/KSRecent.h"
#include "model/PENTOGRID.h"
#include "platform/Dialogs.h"
#include "platform/Form.h"

class PictureButton;

/// The window in which puzzles are made: pieces from twelve buttons are laid on the inner part of a
/// board, shifted together by four arrows, and saved as a puzzle file.
///
/// State: the puzzle is changed from the moment a piece is picked up from the board or laid down,
///        until it is saved, opened or begun anew. Arrows, buttons and trash do not change it.
class frmEdit : public Form, private RecentMenu {
 public:
  static constexpr int kRecentFiles = 4;

  frmEdit();

  bool fFileChanged = false;            ///< the board holds changes that are not saved
  std::optional<KSRecent> RecentFiles;  ///< made when the window loads
  QPointer<PENTOWINDOW> Grid;           ///< the board; null unless loaded

  // What the editor may call of the other windows.
  std::function<void()> ShowPlay;              ///< shows the play window, without waiting
  std::function<void(Form& owner)> ShowAbout;  ///< shows the About box and waits for it
  std::function<void(bool)> SetChooserEdit;    ///< whether the chooser was called by the editor

  /// Asks whether changes shall be saved, if there are any, and saves them. True when the caller
  /// may go on and discard the board.
  bool CheckSaveStatus();

 protected:
  void BuildControls() override;
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_Unload(bool& Cancel) override;

 private:
  // layout
  void buildPieceButtons();
  void buildShiftButtons();
  PictureButton* addButton(const QString& object, const QString& picture, const QString& name,
                           const QString& hint, const QRectF& place);
  void layOutBoard();
  void addKey(Qt::Key key, const std::function<void()>& action);
  void switchBetweenButtonsAndBoard();

  // menus
  void buildFileMenu();
  void buildHelpMenu();
  void SetCaption(int item, const std::string& text) override;
  void SetVisible(int item, bool visible) override;
  void mnuHelpAbout_Click();
  void mnuFilePlay_Click();

  // files
  void mnuFileNew_Click();
  void mnuFileOpen_Click();
  void mnuFileRecent_Click(std::int16_t Index);
  void mnuFileSave_Click();
  void mnuFileSaveAs_Click();
  void open(const std::filesystem::path& file);
  void save();

  void cmdPento_Click(std::int16_t Index);

  PENTOGRID BoardGrid_;
  bool fActivated_ = false;
  Dialogs::FileDialog cdlgOpen_;
  QPointer<QFrame> fraCover_;
  CarryHint hint_;
  std::array<QPointer<QAction>, kRecentFiles + 1> mnuFileRecent_;
};
