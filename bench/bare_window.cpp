// The least Qt program with a window: what start time and memory are compared with.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle("Bare window");
  window.resize(467, 298);
  window.show();
  return QApplication::exec();
}
