// A window that is moved to a screen of another density.
#include <QScreen>
#include <QWindow>

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

  /// The offscreen platform of newer toolkits leaves a moved window the ratio that it was made
  /// with.
  void moveTo(const QScreen& place) {
    onScreen([&] {
      main().Window()->move(place.geometry().topLeft() + QPoint(9, 9));
      QWindow* window = main().Window()->windowHandle();
      if (window->devicePixelRatio() == place.devicePixelRatio()) return;
      const QRect geometry = window->geometry();
      window->destroy();
      window->setGeometry(geometry);
      window->show();
    });
  }

  static QImage shown(const PENTOWINDOW& board) {
    auto* box = dynamic_cast<PictureBox*>(board.findChild<QWidget*>("pctFore"));
    return box->picture().view().copy();
  }
};

/// The tile is what the layout says in the pixels of that screen, and all of it is painted.
TEST_F(Screens, TheBoardIsDrawnAnewInThePixelsOfItsScreen) {
  ASSERT_EQ(screen("dense")->devicePixelRatio(), 2 * screen("plain")->devicePixelRatio());
  inGame([this] {
    onScreen([this] { main().Window()->showNormal(); });
    for (const char* name : {"dense", "plain"}) {
      SCOPED_TRACE(name);
      PENTOWINDOW& board = *main().Grid;
      const double ratio = screen(name)->devicePixelRatio();
      moveTo(*screen(name));
      waitFor("that screen's background",
              [&] { return board.BackTexture().width() == 128 * ratio; });
      onScreen([&] {
        EXPECT_NEAR(board.TileWidth(), std::min(board.width(), board.height()) * ratio / 16, 1);
        const QImage before = shown(board);
        board.PaintAll();
        EXPECT_TRUE(before == shown(board)) << "a full repaint changes nothing";
      });
    }
  });
}

}  // namespace
