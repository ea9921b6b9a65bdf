// Fingers on the real play window, by synthesized touches.
#include <QLineEdit>
#include <QPointingDevice>

#include "platform/Pointer.h"
#include "services/basKelvoWinAPI.h"
#include "tests/play/PlayFixture.h"

namespace {

QPointingDevice& screen() {
  static QPointingDevice* device = QTest::createTouchDevice();
  return *device;
}

/// A puzzle of two pieces in easy orientation: an I (type 1) at (2, 2) and a P (type 5) at (6, 6).
class ByTouch : public PlayFixture {
 protected:
  enum class Place { Tray, BelowGoal, Goal, Carried, CarriedFoot, Wall, Beyond };
  enum class Do { Down, Move, Up, LongPress, Mouse };
  struct Step {
    int finger;
    Do what;
    Place where = Place::Tray;
  };
  enum class Piece { Tray, Air, Board };
  struct Gesture {
    const char* name;
    std::vector<Step> steps;
    Piece lies;
    int turns = 0, mirrorings = 0;
  };

  PENTOWINDOW& board() { return *main().Grid; }
  PENTOWINDOW& tray() { return *main().PentoPanel; }

  void start(bool easy = false) {
    PENTOGRID puzzle = ringedGrid(14, 14);
    puzzle.AddPento(makePiece(1), 2, 2);
    puzzle.AddPento(makePiece(5), 6, 6);
    const fs::path file = folder_ / "two.qzl";
    putBytes(file, PuzzleFormat::write(puzzle, PuzzleFormat::kUnlocked));
    onScreen([&] {
      basTiles::fRandomFlip = basTiles::fRandomRotation = false;
      board().fEasyMode = tray().fEasyMode = easy;
      EXPECT_TRUE(basTiles::LoadPuzzle(file, false));
      for (const auto& [id, piece] : tray().Grid()->PentoCollection())
        if (piece->PentoType() == 5) take(piece);
    });
  }

  static QPointF pixel(PENTOWINDOW& control, double column, double row) {
    auto* surface = dynamic_cast<PictureBox*>(control.findChild<QWidget*>("pctFore"));
    const double border = PictureBox::kSunkenBorder, s = control.TileWidth();
    return surface->screenCorner() + QPointF(border + column * s, border + row * s);
  }

  /// The piece that the gestures are for, and where a finger finds it in the tray.
  void take(const PentoRef& piece) {
    piece_ = piece;
    home_ = pixel(tray(), piece->X() + piece->GridX(0) + 0.5, piece->Y() + piece->GridY(0) + 0.5);
  }

  QPointF point(Place place) {
    const double width = piece_->Width() / 2.0, height = piece_->Height();
    switch (place) {
      case Place::Tray:
        return home_;
      case Place::BelowGoal:
        return pixel(board(), 6 + width, 6 + height + 1);
      case Place::Goal:
        return pixel(board(), 6 + width, 6 + height / 2);
      case Place::Carried:
        return Pointer::position();
      case Place::CarriedFoot:
        return Pointer::position() + QPointF(0, board().TileWidth());
      case Place::Wall:
        return pixel(board(), 10.5, 10.5);
      case Place::Beyond:
        return QPointF(main().Client()->mapToGlobal(QPoint(-20, 40)));
    }
    return {};
  }

  /// Sends one touch event that tells of all fingers.
  void touch(int finger, Do what, const QPointF& global, QPointingDevice& device = screen()) {
    QWidget& window = *main().Window();
    const QPoint at = window.mapFromGlobal(global).toPoint();
    auto event = QTest::touchEvent(&window, &device, false);
    fingers_[finger] = at;
    for (const auto& [id, place] : fingers_.asKeyValueRange())
      if (id != finger) event.move(id, place, &window);
    if (what == Do::Down) event.press(finger, at, &window);
    if (what == Do::Move) event.move(finger, at, &window);
    if (what == Do::Up) event.release(finger, at, &window);
    if (what == Do::Up) fingers_.remove(finger);
    event.commit();
  }

  void moveMouse(Place place) {
    onScreen([&] {
      QTest::mouseMove(main().Window()->windowHandle(),
                       main().Window()->mapFromGlobal(point(place)).toPoint());
    });
  }

  void perform(const Step& step) {
    if (step.what == Do::LongPress)
      return waitFor("the turn", [&] { return piece_->RotationCount == 1; });
    if (step.what == Do::Mouse) return moveMouse(step.where);
    onScreen([&] { touch(step.finger, step.what, point(step.where)); });
    onScreen([] {});  // a move that follows
  }

  void perform(const std::vector<Step>& steps) {
    for (const Step& step : steps) perform(step);
  }

  Piece whereItLies() {
    return onScreen([&] {
      EXPECT_EQ(board().Floating(), tray().Floating());
      if (board().Floating()) return board().FloatingPento() == piece_ ? Piece::Air : Piece::Tray;
      return board().Grid()->PentoAt(6, 6) == piece_ ? Piece::Board : Piece::Tray;
    });
  }

  void expectAsDrawnAfterAFullRepaint() {
    onScreen([&] {
      for (PENTOWINDOW* control : {&board(), &tray()}) {
        auto* surface = dynamic_cast<PictureBox*>(control->findChild<QWidget*>("pctFore"));
        const QImage now = surface->picture().view().copy();
        control->PaintAll();
        EXPECT_EQ(now, surface->picture().view().copy()) << control->objectName().toStdString();
      }
    });
  }

  PentoRef piece_;
  QPointF home_;
  QHash<int, QPoint> fingers_;  ///< those that are down, in the window
};

TEST_F(ByTouch, Gestures) {
  using enum Do;
  using enum Place;
  const std::vector<Step> dragOver{{0, Down, Tray}, {0, Move, BelowGoal}};
  const std::vector<Step> tap{{0, Down, Tray}, {0, Up, Tray}};
  const auto then = [](std::vector<Step> first, const std::vector<Step>& next) {
    first.insert(first.end(), next.begin(), next.end());
    return first;
  };
  const std::vector<Gesture> gestures{
      {"a drag lays the piece that hangs above the finger", then(dragOver, {{0, Up, BelowGoal}}),
       Piece::Board},
      {"a tap takes", tap, Piece::Air},
      {"a tap lays where it is", then(tap, {{0, Down, Goal}, {0, Up, Goal}}), Piece::Board},
      {"a tap on the carried piece is a press where it hangs",
       then(tap,
            {{0, Mouse, Wall}, {0, Mouse, Goal}, {0, Down, CarriedFoot}, {0, Up, CarriedFoot}}),
       Piece::Board},
      {"a second finger turns", then(dragOver, {{1, Down, Wall}, {1, Up, Wall}}), Piece::Air, 1},
      {"it turns each time",
       then(dragOver, {{1, Down, Wall}, {1, Up, Wall}, {2, Down, Wall}, {2, Up, Wall}}), Piece::Air,
       2},
      {"two more mirror",
       then(dragOver, {{1, Down, Wall}, {2, Down, Goal}, {1, Up, Wall}, {2, Up, Goal}}), Piece::Air,
       0, 1},
      {"a finger that strays is no tap", then(dragOver, {{1, Down, Wall}, {1, Up, Goal}}),
       Piece::Air},
      {"a turn above a finger that took it, and it lies on when that one is lifted",
       {{0, Down, Tray}, {1, Down, Wall}, {1, Up, Wall}, {0, Up, Tray}},
       Piece::Air,
       1},
      {"a long press turns", then(tap, {{0, Down, Carried}, {0, LongPress}, {0, Up, Carried}}),
       Piece::Air, 1},
      {"a refused drop stays in the air", then(dragOver, {{0, Move, Wall}, {0, Up, Wall}}),
       Piece::Air},
      {"lifted beside the boards it stays in the air",
       then(dragOver, {{0, Move, Beyond}, {0, Up, Beyond}}), Piece::Air},
      {"and comes back to a finger",
       then(dragOver, {{0, Move, Beyond},
                       {0, Up, Beyond},
                       {0, Down, Goal},
                       {0, Move, BelowGoal},
                       {0, Up, BelowGoal}}),
       Piece::Board},
      {"a finger on no piece takes none",
       {{0, Down, Wall}, {0, Move, Tray}, {0, Up, Tray}},
       Piece::Tray},
  };
  inGame([&] {
    for (const Gesture& gesture : gestures) {
      SCOPED_TRACE(gesture.name);
      start();
      perform(gesture.steps);
      EXPECT_EQ(whereItLies(), gesture.lies);
      EXPECT_EQ(piece_->RotationCount, gesture.turns);
      EXPECT_EQ(piece_->FlipCount, gesture.mirrorings);
      for (const int finger : fingers_.keys()) perform({finger, Up, Beyond});
      expectAsDrawnAfterAFullRepaint();
    }
  });
}

TEST_F(ByTouch, AFingerIsThePointerAndTheMouseIsItAgainWhenItMoves) {
  int placed = 0;
  Pointer::Server server;
  server.place = [&](const QPointF&) { ++placed; };
  const Replacement<Pointer::Server> counting(Pointer::server, server);
  inGame([&] {
    start();
    perform({{0, Do::Down, Place::Tray}, {0, Do::Move, Place::BelowGoal}});
    onScreen([&] {
      const QPoint finger = point(Place::BelowGoal).toPoint();
      const auto [x, y] = basKelvoWinAPI::GetCursorPos(board());
      EXPECT_LE((QPoint(x, y) - finger).manhattanLength(), 1);
      basKelvoWinAPI::SetCursorPos(1, 1, board());
    });
    EXPECT_EQ(placed, 0);
    EXPECT_EQ(onScreen([&] { return board().CellOfHand(); }), QPoint(6, 6));

    perform({{0, Do::Move, Place::Beyond}, {0, Do::Up, Place::Beyond}});
    moveMouse(Place::Wall);  // the toolkit tells of no move to where the mouse last was
    moveMouse(Place::Goal);
    EXPECT_EQ(onScreen([&] { return board().CellOfHand(); }), QPoint(6, 6));
  });
}

TEST_F(ByTouch, ADialogEndsWhatFingersBeganAndTouchPadsAreNoFingers) {
  inGame([&] {
    start(true);
    perform(
        {{0, Do::Down, Place::Tray}, {0, Do::Move, Place::BelowGoal}, {1, Do::Down, Place::Wall}});
    post([&] { touch(1, Do::Up, point(Place::Wall)); });
    EXPECT_NE(answer(QMessageBox::Yes), "");
    waitFor("the turn", [&] { return piece_->RotationCount == 1; });
    perform({{0, Do::Up, Place::BelowGoal}});
    EXPECT_EQ(whereItLies(), Piece::Air);

    static QPointingDevice* pad = QTest::createTouchDevice(
        QInputDevice::DeviceType::TouchPad,
        QInputDevice::Capability::Position | QInputDevice::Capability::MouseEmulation);
    start();
    for (const Do what : {Do::Down, Do::Up})
      onScreen([&] { touch(0, what, point(Place::Tray), *pad); });
    EXPECT_EQ(whereItLies(), Piece::Tray);
  });
}

TEST_F(ByTouch, ThePuzzleIsSolvedByTwoDrags) {
  inGame([&] {
    start();
    perform({{0, Do::Down, Place::Tray},
             {0, Do::Move, Place::BelowGoal},
             {0, Do::Up, Place::BelowGoal}});
    onScreen([&] { take(tray().Grid()->PentoCollection().at(0)); });
    perform({0, Do::Down, Place::Tray});
    post([&] {
      const QPointF under = pixel(board(), 2 + piece_->Width() / 2.0, 2 + piece_->Height() + 1);
      touch(0, Do::Move, under);
      touch(0, Do::Up, under);
    });
    waitOpen(solved());
    post([&] { solved().Unload(); });
    waitClosed(solved());
  });
}

}  // namespace
