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
  enum class Place { Tray, BelowGoal, Goal, Wall, Beyond };
  enum class Do { Down, Move, Up };
  struct Step {
    int finger;
    Do what;
    Place where = Place::Tray;
  };
  enum class Piece { Tray, Air, Board };

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

  PentoRef piece_;
  QPointF home_;
  QHash<int, QPoint> fingers_;  ///< those that are down, in the window
};

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
