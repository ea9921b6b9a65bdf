#pragma once

#include <QSize>
#include <vector>

#include "tour/Hands.h"
#include "tour/Robot.h"

/// What a player does with a piece in the air other than laying it down. After each trial the piece
/// must still be in the air and the pictures of board and tray must be what full repaints give.
///
/// Errors: Script::Error names what did not hold.
class Trials {
 public:
  Trials(Robot& robot, Wiring& program, Hands& hands)
      : robot_(robot), program_(program), hands_(hands) {}

  /// Runs the next trial of the row. Needs a piece in the air.
  void next();
  /// Maximizes the play window again, after trials that gave it another size.
  void restoreSize();

  int refusedDrops() const { return refusedDrops_; }
  int resizes() const { return resizes_; }
  int jumps() const { return jumps_; }
  int absences() const { return absences_; }

 private:
  void dropOnTheRing();
  void dropOnAPiece(PENTOWINDOW& control);
  void dropOnABoardPiece();
  void dropOnATrayPiece();
  void resize();
  void turnToAnotherProgram();
  void minimize();
  void switchSoundOffAndOn();
  void jump();
  void askForATurn();

  QWidget& window() const { return *program_.main.Window(); }
  void waitSize(const std::function<bool(const QSize&)>& fits);
  void waitActive();
  void rest();
  void checkPictures();
  std::size_t piecesLying() const;

  Robot& robot_;
  Wiring& program_;
  Hands& hands_;
  std::size_t turn_ = 0;
  std::size_t size_ = 0;
  int refusedDrops_ = 0;
  int resizes_ = 0;
  int jumps_ = 0;
  int absences_ = 0;
};
