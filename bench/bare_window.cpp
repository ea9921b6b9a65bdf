// The least Qt programs that do what the game does: what it is compared with.
// Usage: quinzolith-bench-bare [line | WIDTHxHEIGHT]
//        without an argument an empty window
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <string>

namespace {

/// Draws a rectangle of so many device pixels at the pointer, and repaints where it was and where
/// it is.
class Carrying : public QWidget {
 public:
  explicit Carrying(const QSize& size)
      : piece_(size), box_(QPoint(0, 0), size / devicePixelRatioF()) {
    piece_.fill(Qt::red);
    piece_.setDevicePixelRatio(devicePixelRatioF());
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

 protected:
  void mouseMoveEvent(QMouseEvent* event) override {
    const QRect before = box_;
    box_.moveCenter(event->position().toPoint());
    update(before.united(box_));
  }
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.fillRect(event->rect(), Qt::gray);
    painter.drawPixmap(box_.topLeft(), piece_);
  }

 private:
  QPixmap piece_;
  QRect box_;
};

void show(QWidget& window, bool wholeScreen) {
  window.setWindowTitle("Bare window");
  window.resize(467, 298);
  wholeScreen ? window.showMaximized() : window.show();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string what = argc == 2 ? argv[1] : "";
  QApplication application(argc, argv);
  if (what == "line") {
    QLabel line("A line of text");
    line.setAlignment(Qt::AlignCenter);
    show(line, false);
    return QApplication::exec();
  }
  if (const auto by = what.find('x'); by != std::string::npos) {
    Carrying carrying(QSize(std::stoi(what), std::stoi(what.substr(by + 1))));
    show(carrying, true);
    return QApplication::exec();
  }
  QWidget empty;
  show(empty, false);
  return QApplication::exec();
}
