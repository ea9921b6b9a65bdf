// The least Qt programs that do what the game does: what it is compared with.
// Usage: quinzolith-bench-bare empty | line | square
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <string_view>

namespace {

constexpr QSize kPiece(93, 92);  // of nine cells of 30 pixels, and the pixels beside them

/// Draws a square at the pointer over a picture, and repaints where it was and where it is.
class Carrying : public QWidget {
 public:
  Carrying() {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

 protected:
  void mouseMoveEvent(QMouseEvent* event) override {
    const QRect before = square_;
    square_.moveCenter(event->position().toPoint());
    update(before.united(square_));
  }
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.setClipRect(event->rect());
    painter.fillRect(event->rect(), Qt::gray);
    painter.drawPixmap(square_.topLeft(), piece_);
  }

 private:
  static QPixmap piece() {
    QPixmap picture(kPiece);
    picture.fill(Qt::red);
    return picture;
  }
  QPixmap piece_ = piece();
  QRect square_{QPoint(0, 0), kPiece};
};

void show(QWidget& window, bool wholeScreen) {
  window.setWindowTitle("Bare window");
  window.resize(467, 298);
  wholeScreen ? window.showMaximized() : window.show();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view what = argc == 2 ? argv[1] : "";
  QApplication application(argc, argv);
  if (what == "line") {
    QLabel line("A line of text");
    line.setAlignment(Qt::AlignCenter);
    show(line, false);
    return QApplication::exec();
  }
  if (what == "square") {
    Carrying carrying;
    show(carrying, true);
    return QApplication::exec();
  }
  QWidget empty;
  show(empty, false);
  return QApplication::exec();
}
