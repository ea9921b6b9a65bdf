#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "catalogue/Catalogue.h"
#include "model/PuzzleFormat.h"
#include "platform/PictureBox.h"
#include "tour/Robot.h"
#include "wiring/Wiring.h"

/// Playing with a Robot: finds the windows' controls on the screen and carries pieces to the places
/// that a puzzle file names.
class Hands {
 public:
  enum class Carrying { ClickByClick, ButtonHeld };

  Hands(Robot& robot, Wiring& program) : robot_(robot), program_(program) {}

  /// Clicks a control of a window by its object name.
  void clickOn(Form& window, const QString& name);
  /// Chooses a menu item by the object names of menu and item.
  void choose(Form& window, const QString& menu, const QString& item);
  void waitOpen(Form& window);
  void waitClosed(Form& window);

  /// Turns the open chooser to one of its tabs, counted from 0.
  void turnToTab(int tab);
  /// Picks a standard puzzle in the open chooser, in easy or normal mode, and waits for it.
  void pick(const Catalogue::Entry& puzzle, bool easy);

  /// The solution that a puzzle file holds.
  static std::vector<PuzzleFormat::PieceRecord> solution(const std::filesystem::path& file);

  /// Carries every piece from the tray to its place. `between` runs while a piece is in the air
  /// between tray and board, with the number of pieces laid down.
  void solve(const std::vector<PuzzleFormat::PieceRecord>& pieces, Carrying carrying,
             const std::function<void(std::size_t)>& between = {});

  /// Picks a piece of that type up from the tray and turns it as the record says.
  void takeFromTray(const PuzzleFormat::PieceRecord& record, Carrying carrying);
  /// Carries the piece in the air to where a drop puts its upper left corner on a cell of the
  /// board.
  void carryTo(int column, int row);
  /// Presses where the piece in the air does not fit, and waits for the control to refuse it.
  void dropInVain(PENTOWINDOW& control, const std::function<QPointF()>& place);
  /// The middle of a cell of a board control on the screen.
  static QPointF cell(PENTOWINDOW& control, double column, double row);
  /// A point of a board control's margin on the screen, left of its surface.
  static QPointF margin(PENTOWINDOW& control);
  /// A point of a window's title bar.
  static QPointF titleBar(const QWidget& window);
  static PictureBox& surface(PENTOWINDOW& control);

 private:
  void clickOnEntry(class PuzzleList& list, const Catalogue::Entry& puzzle);
  QPointF overBoard(int column, int row) const;
  bool floatsAt(int column, int row) const;
  void orient(const PuzzleFormat::PieceRecord& record);

  Robot& robot_;
  Wiring& program_;
  unsigned mirrorings_ = 0;
};
