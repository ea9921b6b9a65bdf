// The whole game, and one puzzle made, by keys alone.
#include <QLineEdit>

#include "board/Hand.h"
#include "tests/play/PlayFixture.h"

namespace {

class ByKeys : public PlayFixture {
 protected:
  PENTOWINDOW& board() { return *main().Grid; }
  PENTOWINDOW& tray() { return *main().PentoPanel; }

  /// To whatever has the focus, as a person types. The last piece of a puzzle opens a dialog.
  static void type(const Form& window, Qt::Key key, int times = 1) {
    for (int i = 0; i < times; ++i)
      post([&window, key] { QTest::keyClick(window.Window()->focusWidget(), key); });
    onScreen([] {});
  }

  /// To whatever opened last: a menu or a dialog.
  static void type(Qt::Key key) {
    post([key] {
      QWidget* menu = QApplication::activePopupWidget();
      QTest::keyClick(menu ? menu : QApplication::focusWidget(), key);
    });
    onScreen([] {});
  }

  static bool chosen(const QAction& item) {
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return menu && menu->activeAction() == &item;
  }

  /// By arrows, so that a press would use this cell of the control.
  static void arrowsTo(const Form& window, PENTOWINDOW& control, const QPoint& cell) {
    const QPoint now = onScreen([&] { return control.CellOfHand(); });
    type(window, cell.x() < now.x() ? Qt::Key_Left : Qt::Key_Right, std::abs(cell.x() - now.x()));
    type(window, cell.y() < now.y() ? Qt::Key_Up : Qt::Key_Down, std::abs(cell.y() - now.y()));
    EXPECT_EQ(onScreen([&] { return control.CellOfHand(); }), cell);
  }

  /// Turns and mirrors the carried piece until it stands as the solution has it.
  void orient(const Form& window, const PENTO& piece, int rotations, int flips) {
    if (piece.FlipCount != flips) type(window, Qt::Key_M);
    while (piece.RotationCount != rotations) type(window, Qt::Key_PageDown);
  }

  void solveByKeys(const std::vector<PuzzleFormat::PieceRecord>& solution) {
    for (const auto& record : solution) {
      // Tab goes from piece to piece of the tray; the first of the type will do.
      for (int tries = 0; tries < 40; ++tries) {
        type(main(), Qt::Key_Tab);
        const bool found = onScreen([&] {
          const QPoint cell = tray().CellOfHand();
          const PentoRef piece = tray().Grid()->PentoAt(cell.x(), cell.y());
          return piece && piece->PentoType() == record.type;
        });
        if (found) break;
      }
      type(main(), Qt::Key_Return);
      const PentoRef piece = onScreen([&] { return tray().FloatingPento(); });
      ASSERT_TRUE(piece);
      ASSERT_EQ(piece->PentoType(), record.type);
      orient(main(), *piece, record.rotations, record.flips);
      type(main(), Qt::Key_Tab);
      arrowsTo(main(), board(), {record.x, record.y});
      type(main(), Qt::Key_Return);
    }
  }
};

TEST_F(ByKeys, EveryStandardPuzzleIsSolved) {
  inGame([this] {
    for (const Catalogue::Entry& entry : Catalogue::entries()) {
      const fs::path file =
          fs::path(QUINZOLITH_TREE) / "puzzles" / (std::string(entry.key) + ".qzl");
      onScreen([&] { EXPECT_TRUE(basTiles::LoadPuzzle(file, false)); });
      solveByKeys(PuzzleFormat::read(bytesOf(file)).pieces);
      waitOpen(solved());
      post([this] { solved().Unload(); });
      waitClosed(solved());
    }
  });
}

TEST_F(ByKeys, APuzzleIsMadeAndSaved) {
  play([this] {
    const fs::path file = folder_ / "mine.qzl";
    waitOpen(splash());
    click(splash(), "imgEdit");
    waitOpen(edit());
    onScreen([&] { QCursor::setPos(edit().Client()->mapToGlobal(QPoint(2, 2))); });
    // The hand goes to the board, the keys to the first button; a piece appears under the hand.
    for (Qt::Key pressed : {Qt::Key_F6, Qt::Key_F6, Qt::Key_Return}) type(edit(), pressed);
    arrowsTo(edit(), *edit().Grid, {4, 4});
    type(edit(), Qt::Key_Return);
    for (Qt::Key pressed : {Qt::Key_F6, Qt::Key_Tab, Qt::Key_Space}) type(edit(), pressed);
    type(edit(), Qt::Key_Escape);  // a new piece is thrown away
    EXPECT_FALSE(onScreen([&] { return edit().Grid->Floating(); }));

    type(edit(), Qt::Key_F10);
    while (onScreen([&] { return !chosen(*item(edit(), "mnuFileSaveAs")); })) type(Qt::Key_Down);
    type(Qt::Key_Return);
    waitFor("the file dialog", [] { return QApplication::activeModalWidget() != nullptr; });
    onScreen([&] {
      QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(file.string()));
    });
    type(Qt::Key_Return);
    waitFor("the save", [&] { return !edit().fFileChanged; });
    const auto pieces = PuzzleFormat::read(bytesOf(file)).pieces;
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(QPoint(pieces[0].x, pieces[0].y), QPoint(4, 4));
    type(edit(), Qt::Key_F10);
    for (Qt::Key pressed : {Qt::Key_Up, Qt::Key_Return}) type(pressed);  // Close
    waitClosed(edit());
  });
}

}  // namespace
