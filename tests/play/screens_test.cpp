// A window that is moved to a screen of another density.
#include <QScreen>

#include "platform/PictureBox.h"
#include "tests/play/PlayFixture.h"

namespace {

class Screens : public PlayFixture {
 protected:
  static QScreen* screen(const QString& name) {
    for (QScreen* found : QGuiApplication::screens())
      if (found->name() == name) return found;
    throw Script::Error("There is no such screen");
  }

  int backgroundSide() { return program_->main.Grid->BackTexture().width(); }
  QImage shown() {
    auto* box = dynamic_cast<PictureBox*>(program_->main.Grid->findChild<QWidget*>("pctFore"));
    return box->picture().view().copy();
  }

  /// The tile is what the layout says in the pixels of that screen, and all of it is painted.
  void expectWholeBoard(const QString& name) {
    PENTOWINDOW& board = *program_->main.Grid;
    const double pixels =
        std::min(board.width(), board.height()) * screen(name)->devicePixelRatio();
    EXPECT_NEAR(board.TileWidth(), pixels / 16, 1) << name.toStdString();
    const QImage before = shown();
    board.PaintAll();
    EXPECT_TRUE(before == shown()) << "a full repaint changes nothing: " << name.toStdString();
  }
};

TEST_F(Screens, TheBoardIsDrawnAnewInThePixelsOfItsScreen) {
  ASSERT_EQ(QGuiApplication::screens().size(), 2);
  play([this] {
    toPlay();
    Script::onScreen([this] { program_->main.Window()->showNormal(); });
    for (const char* name : {"dense", "plain"}) {
      Script::onScreen([&] {
        program_->main.Window()->move(screen(name)->geometry().topLeft() + QPoint(9, 9));
      });
      const int side = 128 * static_cast<int>(screen(name)->devicePixelRatio());
      Script::waitFor("the background for that screen", [&] { return backgroundSide() == side; });
      Script::onScreen([&] { expectWholeBoard(name); });
    }
    Script::post([this] { program_->main.Unload(); });
    waitClosed(program_->main);
  });
}

}  // namespace
