#pragma once

#include <functional>
#include <string>
#include <vector>

namespace machine {

/// A place on the desktop, told by what is there when the step comes, so that a step stays
/// meaningful when others are taken away before it.
struct Spot {
  enum Where {
    Here,        ///< `x`, `y` logical pixels from where the pointer is
    BoardPiece,  ///< on the x-th piece that lies there, counted round; y chooses its cell
    TrayPiece,
    BoardFit,  ///< where the carried piece, as it is turned, lies on the x-th place that is free
    TrayFit,
    BoardArea,  ///< percent of the whole control, its margin included
    TrayArea,
    Window,  ///< percent of the window
    Desk,    ///< beside all windows
  };
  Where where = Here;
  int x = 0;
  int y = 0;
};

/// One thing that happens to the program. Where it cannot happen, as a turn of the page with no
/// page open, it does nothing.
struct Step {
  enum Kind {
    // The pointer, which is as bad as a real one.
    Move,     ///< to the spot, in one motion
    Glide,    ///< to the spot, in motions of some pixels
    Slip,     ///< to the spot, and no motion is told
    Tell,     ///< the motion that is due comes late
    Press,    ///< button 0 left, 1 right, 2 middle
    Release,  ///< all buttons
    Click,
    Again,    ///< the second press of a double-click, with the button of the last one
    Placing,  ///< from now on the program's placing of the cursor: 0 works, 1 raises no motion, 2
              ///< does nothing
    // Time.
    Tick,  ///< of the board (0) or the tray (1)
    Rest,  ///< the pointer rests until all is told and both have ticked twice, board or tray first
    // Keys and windows.
    Key,     ///< one of those that mirror, move and use the hand
    Leave,   ///< another program's window becomes the active one
    Return,  ///< and ours again
    Resize,  ///< one of the sizes
    Minimize,
    Restore,
    Close,       ///< the window that is in front
    Item,        ///< an item of the window's menus
    Button,      ///< a button of the window: of the editor, or a way on from the solved puzzle
    Puzzle,      ///< in the chooser: a puzzle, in easy mode if the number is odd
    Answer,      ///< a button of the message box
    Name,        ///< a name in the file dialog, or cancelling it
    FingerDown,  ///< at the spot, if a board is there; until it is lifted nothing else happens
    FingerMove,
    FingerUp,      ///< comes before whatever else a person does
    FingerBeside,  ///< 0 another finger taps, 1 two others, 2 the first one has been held for long
    Glance,  ///< at the carried piece, once the motion is told, and before a tick could mend it
    Look,    ///< the last part of a rest; never made by itself
  };
  Kind kind = Rest;
  Spot spot{};
  int number = 0;
  /// The next step comes before what this one has left to be done later, as events that arrive
  /// together do.
  bool hurried = false;
};

/// The element that a number chooses, counted round.
template <class Array>
auto& counted(Array& array, int which) {
  return array[static_cast<std::size_t>(which) % std::size(array)];
}

/// A run of the program.
struct Scenario {
  bool editor = false;  ///< starts there, else with a puzzle on the board
  int size = 0;         ///< of the window
  int puzzle = 0;
  std::vector<Step> steps{};
};

/// As C++, to be kept as a case.
std::string text(const Step& step);
std::string text(const Scenario& scenario);

/// The fewest and plainest steps found with which a scenario still fails: parts are left out, from
/// the whole down to single steps (the minimizing delta debugging of A. Zeller and R. Hildebrandt).
Scenario shrunk(Scenario failing, const std::function<bool(const Scenario&)>& fails);

}  // namespace machine
