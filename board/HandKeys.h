#pragma once

#include <QKeyEvent>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <vector>

class PENTOWINDOW;

/// The keys by which a window's hand is moved and used. They do what the mouse does, by the same
/// handlers.
///
///   arrows         one cell of the board that the hand is over; at its edge, the board beside
///   Tab            the next piece of the tray; with a piece in hand, the board's next free cell
///   Shift+Tab      the one before
///   Enter          as the left button
///   Page Down, Up  turn clockwise, counter-clockwise
///   Escape         takes the carried piece back, as it lay, to where it came from, else to the
///                  nearest free place of the tray; a new piece is thrown away
///
/// Without a tray, as in the editor, Tab and Enter are left to the buttons while the hand is not on
/// the board. Only arrows repeat when they are held.
class HandKeys {
 public:
  /// The board to which pieces belong, and the tray from which they come (null: there is none).
  void serve(PENTOWINDOW& board, PENTOWINDOW* tray);

  /// True when the key was one of these.
  bool press(const QKeyEvent& event);
  /// Moves the hand onto the board, where it is not there yet.
  void toBoard();
  /// The board control at a point of the desktop (logical pixels), or null.
  PENTOWINDOW* under(const QPointF& global) const;
  /// The board control that the hand is over, or null.
  PENTOWINDOW* underHand() const;
  /// A board control in which a piece floats, or null.
  PENTOWINDOW* carrying() const;
  /// The boards between which the hand goes.
  std::vector<PENTOWINDOW*> boards() const;

 private:
  PENTOWINDOW* beside(const PENTOWINDOW& from, int direction) const;
  void step(const QPoint& by);
  /// Says what is there, behind the first words.
  void goTo(PENTOWINDOW& control, const QPoint& cell, const QString& first = {});
  void next(int direction);
  void nextOf(PENTOWINDOW& control, const std::vector<QPoint>& cells, int direction);

  PENTOWINDOW* board_ = nullptr;
  PENTOWINDOW* tray_ = nullptr;
};
