// A picture surface is sharp at every scale. The test runs once for each QT_SCALE_FACTOR.
#include "platform/PictureBox.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "drawing/Rounding.h"

namespace {

class PictureBoxTest : public ::testing::Test {
 protected:
  static constexpr QPoint kParent{13, 7};  // logical pixels; no whole device pixels at 1.25 or 1.5

  void SetUp() override {
    window_.resize(300, 220);
    parent_.setGeometry(QRect(kParent, QSize(270, 200)));
    box_.Paint = [this] { ++paints_; };
    box_.MouseMove = [this](double x, double y) { moved_ = QPointF(x, y); };
  }

  void show() {
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
    ratio_ = window_.devicePixelRatioF();
  }

  /// Every pixel another colour, so that a blurred or moved one shows.
  void drawPattern() {
    Surface& picture = box_.picture();
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        picture.row(y)[x] = Surface::rgb(x % 256, y % 256, (x * 31 + y * 17) % 256);
    box_.present(QRect(0, 0, picture.width(), picture.height()));
  }

  /// Where the box's outer corner stands in the window, device pixels.
  QPoint corner(const QPointF& place) const {
    return {nearest(kParent.x() * ratio_ + place.x()), nearest(kParent.y() * ratio_ + place.y())};
  }

  void expectPattern(const QPoint& outer) {
    const QImage seen = window_.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const Surface& picture = box_.picture();
    const QPoint first = outer + QPoint(box_.BorderStyle() * 2, box_.BorderStyle() * 2);
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        ASSERT_EQ(seen.pixel(first.x() + x, first.y() + y), picture.row(y)[x])
            << x << ", " << y << " at scale " << ratio_;
  }

  QWidget window_;
  QWidget parent_{&window_};
  PictureBox box_{&parent_};
  double ratio_ = 1;
  int paints_ = 0;
  QPointF moved_;
};

TEST_F(PictureBoxTest, EachPixelOfThePictureIsADevicePixelOfTheWindow) {
  show();
  for (const QPointF& place : {QPointF(0, 0), QPointF(20.5, 10.5), QPointF(33.3, 41.7)}) {
    box_.setPlace(place, QSize(124, 100));
    EXPECT_EQ(box_.picture().width(), 120);
    EXPECT_EQ(box_.picture().height(), 96);
    drawPattern();
    expectPattern(corner(place));
  }
  box_.BorderStyle(0);
  EXPECT_EQ(box_.picture().width(), 124);
  drawPattern();
  expectPattern(corner(QPointF(33.3, 41.7)));
}

TEST_F(PictureBoxTest, ItStaysSharpWhenItsParentHasMoved) {
  show();
  box_.setPlace(QPointF(20, 10), QSize(84, 64));
  drawPattern();
  parent_.move(kParent + QPoint(1, 2));
  box_.layOut();
  const QPointF moved = QPointF(kParent + QPoint(1, 2)) * ratio_ + QPointF(20, 10);
  expectPattern(QPoint(nearest(moved.x()), nearest(moved.y())));
}

TEST_F(PictureBoxTest, PositionsStartInsideTheBorderInDevicePixels) {
  show();
  box_.setPlace(QPointF(20, 10), QSize(124, 100));
  const QPoint at = kParent + QPoint(60, 40);
  QTest::mouseMove(window_.windowHandle(), at);
  const QPointF expected = QPointF(at) * ratio_ - QPointF(corner(QPointF(20, 10))) - QPointF(2, 2);
  constexpr double rounded = 0.5 + 1e-6;  // newer toolkits move to whole device pixels
  EXPECT_NEAR(moved_.x(), expected.x(), rounded);
  EXPECT_NEAR(moved_.y(), expected.y(), rounded);
}

TEST_F(PictureBoxTest, PaintIsAskedForLaterAndOnceAndNeverByDrawing) {
  box_.setPlace(QPointF(0, 0), QSize(50, 50));
  box_.setPlace(QPointF(0, 0), QSize(60, 60));
  show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return paints_ > 0; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(paints_, 1);
  drawPattern();
  window_.repaint();
  QCoreApplication::processEvents();
  EXPECT_EQ(paints_, 1) << "what is drawn is kept, exposure asks for nothing";
  box_.setPlace(QPointF(5, 5), QSize(60, 60));
  QCoreApplication::processEvents();
  EXPECT_EQ(paints_, 1) << "nor does a move";
  box_.setPlace(QPointF(5, 5), QSize(61, 60));
  EXPECT_EQ(paints_, 1) << "not inside the call";
  QCoreApplication::processEvents();
  EXPECT_EQ(paints_, 2);
}

}  // namespace
