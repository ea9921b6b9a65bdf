// The cursors as the X server holds them, at the scale that the environment sets.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "drawing/Rounding.h"
#include "pictures/HotSpots.h"
#include "platform/DenseCursor.h"
#include "script/Script.h"
#include "tour/Robot.h"

// The server's headers come last: they define common words as macros.
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>

namespace {

struct Shown {
  QSize size;
  QPoint hotSpot;
  bool operator==(const Shown&) const = default;
};

Shown shownBy(Display* display) {
  const std::unique_ptr<XFixesCursorImage, int (*)(void*)> cursor(XFixesGetCursorImage(display),
                                                                  XFree);
  return {{cursor->width, cursor->height}, {cursor->xhot, cursor->yhot}};
}

TEST(Cursors, AreAsLargeAsTheScaleAndPointWithTheScaledHotSpot) {
  QWidget window;
  window.resize(200, 200);
  DenseCursor hand("hand.png", pictures::kHand), pointer("pointer.png", pictures::kPointer);
  window.setCursor(hand.on(window));
  window.show();
  const double scale = window.devicePixelRatioF();
  ASSERT_EQ(scale, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble());
  const auto scaled = [scale](QPoint hotSpot) {
    return Shown{(QSizeF(32, 32) * scale).toSize(),
                 QPoint(nearest(hotSpot.x() * scale), nearest(hotSpot.y() * scale))};
  };
  const std::unique_ptr<Display, int (*)(Display*)> display(XOpenDisplay(nullptr), XCloseDisplay);
  const std::string trouble = Script::run([&] {
    Robot robot;
    robot.waitSettled("the window", window, [&] { return window.isActiveWindow(); });
    robot.moveTo([&] { return QPointF(window.mapToGlobal(QPoint(100, 100))) * scale; });
    Script::waitFor("the hand", [&] { return shownBy(display.get()) == scaled(pictures::kHand); });
    Script::onScreen([&] { window.setCursor(pointer.on(window)); });
    Script::waitFor("the pointer",
                    [&] { return shownBy(display.get()) == scaled(pictures::kPointer); });
  });
  EXPECT_EQ(trouble, "");
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "xcb");
  const QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
