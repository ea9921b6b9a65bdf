#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>

#include "board/PENTOWINDOW.h"
#include "platform/Pointer.h"
#include "platform/Twips.h"
#include "tests/drawing/TestAtlas.h"
#include "tests/model/Pieces.h"

/// Two board controls side by side in an active window, wired as a play window wires them: a board
/// of 14 x 14 cells at tile 30 and a tray of 9 x 12 cells at tile 20.
class BoardFixture : public ::testing::Test {
 protected:
  static constexpr int kBoardTile = 30;
  static constexpr int kTrayTile = 20;

  void SetUp() override {
    Pointer::listen();
    window_.resize(760, 520);
    prepare(tray_, trayGrid_, 9, 12, QRect(0, 0, 220, 520), kTrayTile);
    prepare(board_, boardGrid_, 14, 14, QRect(240, 0, 500, 520), kBoardTile);
    wire(board_, tray_, "board");
    wire(tray_, board_, "tray");
    window_.show();
    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    QTest::qWait(1);
  }

  void prepare(PENTOWINDOW& control, PENTOGRID& grid, int width, int height, const QRect& place,
               int tile) {
    control.ReadProperties(PropertyBag());
    grid = ringedGrid(width, height);
    control.Grid(&grid);
    control.setGeometry(place);
    control.TileSize(static_cast<std::int16_t>(tile));
  }

  void wire(PENTOWINDOW& from, PENTOWINDOW& to, const std::string& name) {
    from.Float = [this, &to, name](PentoRef& P) {
      events_.push_back(name + " Float");
      to.FloatingPento(P);
      to.HideFloatingPento();
    };
    from.Capture = [&to] { to.HideFloatingPento(); };
    from.Uncapture = [&to] { to.ShowFloatingPento(); };
    from.Drop = [this, &to, name] {
      events_.push_back(name + " Drop");
      to.RemoveFloatingPento();
    };
    from.DropError = [this, name] { events_.push_back(name + " DropError"); };
  }

  PentoRef lay(PENTOGRID& grid, int type, int x, int y) {
    const PentoRef piece = makePiece(type);
    EXPECT_TRUE(grid.AddPento(piece, x, y));
    return piece;
  }

  static PictureBox& surface(PENTOWINDOW& control) {
    return *dynamic_cast<PictureBox*>(control.findChild<QWidget*>("pctFore"));
  }

  static QImage shown(PENTOWINDOW& control) { return surface(control).picture().view().copy(); }

  /// A pixel of a control's picture in the window's coordinates.
  QPoint at(PENTOWINDOW& control, double x, double y) {
    PictureBox& box = surface(control);
    const int border = PictureBox::kSunkenBorder;
    return box.mapTo(&window_, QPoint(border, border)) +
           QPoint(static_cast<int>(x), static_cast<int>(y));
  }
  QPoint cell(PENTOWINDOW& control, int column, int row) {
    const int s = control.TileWidth();
    return at(control, column * s + s / 2, row * s + s / 2);
  }

  void move(const QPoint& point) { QTest::mouseMove(window_.windowHandle(), point); }
  /// Moves the display's own pointer, in one step; its move is told.
  void jump(const QPoint& point) {
    QCursor::setPos(window_.mapToGlobal(point));
    QTest::qWait(0);
  }
  void press(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(window_.windowHandle(), button, {}, point);
  }
  void release(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(window_.windowHandle(), button, {}, point);
  }
  void click(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    press(point, button);
    release(point, button);
    QTest::qWait(0);  // a cursor that was placed reports its move
  }

  /// Answers the next message box, and keeps its text and default button.
  void answerNext(QMessageBox::StandardButton button) {
    QTimer::singleShot(0, &window_, [this, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return answerNext(button);
      question_ = box->text();
      no_is_default_ = box->defaultButton() == box->button(QMessageBox::No);
      box->button(button)->click();
    });
  }

  /// The surface shows, pixel by pixel, what a full repaint shows.
  void expectSameAsFullRepaint(PENTOWINDOW& control) {
    const QImage now = shown(control);
    control.PaintAll();
    ASSERT_EQ(now, shown(control));
  }

  TestAtlas pictures_;
  PENTOGRID boardGrid_, trayGrid_;
  QWidget window_;
  PENTOWINDOW tray_{&window_};
  PENTOWINDOW board_{&window_};
  std::vector<std::string> events_;
  QString question_;
  bool no_is_default_ = false;
};
