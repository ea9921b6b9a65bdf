#include "tour/Trials.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <optional>

#include "platform/PictureBox.h"
#include "script/Script.h"
#include "services/basKelvoMusic.h"
#include "tour/Neighbour.h"

namespace {

constexpr int kMiddleButton = 2;
constexpr int kRightButton = 3;
constexpr QSize kSizes[] = {{1000, 760}, {640, 500}, {760, 860}};  // logical pixels of the window

void require(std::size_t trial, const char* claim, bool holds) {
  if (!holds)
    throw Script::Error("After trial " + std::to_string(trial) + " it does not hold that " + claim);
}

QImage pictureOf(PENTOWINDOW& control) {
  return Hands::surface(control).picture().view().copy();
}

}  // namespace

void Trials::next() {
  robot_.release(1);  // the trials click
  const PentoRef piece = Script::onScreen([this] { return program_.main.Grid->FloatingPento(); });
  const int turns = piece->RotationCount, flips = piece->FlipCount;
  const std::size_t lying = Script::onScreen([this] { return piecesLying(); });
  if (turn_ % 2 == 0) robot_.moveTo([this] { return Hands::cell(*program_.main.Grid, 6, 6); });
  constexpr void (Trials::*kTrials[])() = {
      &Trials::dropOnTheRing,       &Trials::resize,   &Trials::turnToAnotherProgram,
      &Trials::dropOnABoardPiece,   &Trials::minimize, &Trials::dropOnATrayPiece,
      &Trials::switchSoundOffAndOn, &Trials::jump};
  (this->*kTrials[turn_++ % std::size(kTrials)])();
  require(turn_, "the same piece is still in the air", Script::onScreen([&] {
            return piece && program_.main.Grid->FloatingPento() == piece &&
                   program_.main.PentoPanel->FloatingPento() == piece && piecesLying() == lying;
          }));
  Script::waitFor("the piece to lie as before trial " + std::to_string(turn_),
                  [&] { return piece->RotationCount == turns && piece->FlipCount == flips; });
  hands_.carryTo(4, 3);
  checkPictures();
}

std::size_t Trials::piecesLying() const {
  return program_.main.Grid->Grid()->PentoCollection().Count() +
         program_.main.PentoPanel->Grid()->PentoCollection().Count();
}

/// Lets both controls tick, whose timers are due before this one.
void Trials::rest() {
  constexpr int longerThanATick = 50;  // milliseconds
  bool rested = false;
  Script::onScreen([&] { QTimer::singleShot(longerThanATick, qApp, [&] { rested = true; }); });
  Script::waitFor("a timer", [&] { return rested; });
}

/// Full repaints must give the pixels that are there.
void Trials::checkPictures() {
  rest();
  for (PENTOWINDOW* control : {program_.main.Grid, program_.main.PentoPanel}) {
    const bool same = Script::onScreen([&] {
      const QImage before = pictureOf(*control);
      control->PaintAll();
      return pictureOf(*control) == before;
    });
    require(turn_, "board and tray show what full repaints show", same);
  }
}

/// Between board and tray, over either one's margin and back, without a step between.
void Trials::jump() {
  constexpr int places[] = {0, 1, 2, 1, 0, 2, 0, 1};
  for (std::size_t i = 0; i < 3 + turn_ % 3; ++i, ++jumps_) {
    const int place = places[(turn_ + i) % std::size(places)];
    robot_.jumpTo(Script::onScreen([&] {
      if (place == 2) return Hands::margin(*program_.main.Grid).toPoint();
      return Hands::cell(place == 0 ? *program_.main.Grid : *program_.main.PentoPanel, 5, 6)
          .toPoint();
    }));
  }
  checkPictures();
}

void Trials::dropOnTheRing() {
  hands_.dropInVain(*program_.main.Grid, [this] { return Hands::cell(*program_.main.Grid, 0, 0); });
  ++refusedDrops_;
}

/// Void where no piece lies yet, or where the pointer would leave the control for each.
void Trials::dropOnAPiece(PENTOWINDOW& control) {
  const auto place = Script::onScreen([&]() -> std::optional<QPointF> {
    const PENTOGRID& grid = *control.Grid();
    const PENTO& floating = *control.FloatingPento();
    for (const auto& [id, lying] : grid.PentoCollection()) {
      const int column = lying->X() + lying->GridX(0) - floating.GridX(0);
      const int row = lying->Y() + lying->GridY(0) - floating.GridY(0);
      const double x = column + (floating.Width() - 1) / 2.0;
      const double y = row + (floating.Height() - 1) / 2.0;
      if (column < 1 || row < 1 || x > grid.Width() - 2 || y > grid.Height() - 2) continue;
      return Hands::cell(control, x, y);
    }
    return {};
  });
  if (!place) return;
  hands_.dropInVain(control, [&] { return *place; });
  ++refusedDrops_;
}

void Trials::dropOnABoardPiece() {
  dropOnAPiece(*program_.main.Grid);
}

void Trials::dropOnATrayPiece() {
  dropOnAPiece(*program_.main.PentoPanel);
  askForATurn();
}

void Trials::waitSize(const std::function<bool(const QSize&)>& fits) {
  robot_.waitSettled("the window's new size", window(), [&] { return fits(window().size()); });
}

void Trials::resize() {
  const QSize wanted = kSizes[size_++ % std::size(kSizes)];
  Script::onScreen([this] { window().showNormal(); });
  robot_.waitSettled("a window that is not maximized", window(),
                     [this] { return !window().isMaximized() && window().isActiveWindow(); });
  Script::onScreen([&] { window().resize(wanted); });
  waitSize([&](const QSize& size) { return size == wanted; });
  ++resizes_;
}

void Trials::restoreSize() {
  if (Script::onScreen([this] { return window().isMaximized(); })) return;
  Script::onScreen([this] { window().showMaximized(); });
  const int width = Script::onScreen([this] { return window().screen()->size().width(); });
  waitSize([&](const QSize& size) { return size.width() >= width - 16; });
}

void Trials::waitActive() {
  robot_.waitSettled("the game to be active again", window(),
                     [this] { return window().isActiveWindow(); });
}

void Trials::turnToAnotherProgram() {
  std::optional<Neighbour> neighbour(std::in_place);
  robot_.moveTo(neighbour->middle());
  robot_.click();
  Script::waitFor("the other program to be active", [] { return !QApplication::activeWindow(); });
  robot_.moveTo([this] { return Hands::cell(*program_.main.Grid, 9, 10); });
  if (absences_++ % 2 == 0) {  // back by closing the other one, else by a click
    neighbour.reset();
  } else {
    robot_.moveTo([this] { return Hands::titleBar(window()); });
    robot_.click();
  }
  waitActive();
}

void Trials::minimize() {
  Script::onScreen([this] { window().showMinimized(); });
  Script::waitFor("a minimized window", [this] { return !window().isActiveWindow(); });
  Script::onScreen([this] {
    window().setWindowState(window().windowState() & ~Qt::WindowMinimized);
    window().activateWindow();
  });
  waitActive();
  ++absences_;
}

void Trials::switchSoundOffAndOn() {
  for (const bool on : {false, true}) {
    hands_.choose(program_.main, "mnuSound", on ? "mnuSoundOn" : "mnuSoundOff");
    Script::waitFor("the sound switch", [&] { return basKelvoMusic::SoundOn() == on; });
  }
}

/// In easy mode the program asks, and hears No. Otherwise four turns are no turn, and two
/// mirrorings none, however fast they come.
void Trials::askForATurn() {
  robot_.moveTo([this] { return Hands::cell(*program_.main.Grid, 7, 7); });
  if (Script::onScreen([this] { return program_.main.Grid->fEasyMode; })) {
    robot_.click(kRightButton);
    Script::waitFor("the question", [] {
      const QWidget* question = QApplication::activeModalWidget();
      return question && question->isActiveWindow();
    });
    robot_.key("Escape");
    Script::waitFor("the answer", [this] {
      return !QApplication::activeModalWidget() && window().isActiveWindow();
    });
    return;
  }
  for (int i = 0; i < 4; ++i) robot_.click(kRightButton);
  for (int i = 0; i < 2; ++i) robot_.click(kMiddleButton);
}
