#include "wiring/Wiring.h"

#include <QApplication>
#include <QIcon>
#include <QPixmapCache>
#include <functional>
#include <initializer_list>

#include "platform/Pointer.h"
#include "platform/Program.h"
#include "play/basStartup.h"

namespace {

constexpr int kPixmapCache = 512;  // KiB

QIcon programIcon() {
  QIcon icon;
  for (int size : {16, 22, 24, 32, 48, 64, 128, 256})
    icon.addFile(QString(":/pictures/quinzolith-%1.png").arg(size), QSize(size, size));
  return icon;
}

/// Calls once, when a first window has been painted: for what costs time and is not missed before.
class AfterFirstPaint : public QObject {
 public:
  explicit AfterFirstPaint(std::function<void()> work) : QObject(qApp), work_(std::move(work)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      qApp->removeEventFilter(this);
      QMetaObject::invokeMethod(this, work_, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  std::function<void()> work_;
};

/// As long as it lives, pictures are read without plugins. The toolkit asks every plugin before its
/// own reader of PNGs, and to load them all takes longer than to read the splash window's pictures.
class WithoutPlugins {
 public:
  WithoutPlugins() { QCoreApplication::setLibraryPaths({}); }
  ~WithoutPlugins() { QCoreApplication::setLibraryPaths(paths_); }
  WithoutPlugins(WithoutPlugins&&) = delete;

 private:
  const QStringList paths_ = QCoreApplication::libraryPaths();
};

}  // namespace

Wiring::Wiring() {
  // Each chooser makes its icons anew; of those of former ones the toolkit would keep 10 MiB.
  QPixmapCache::setCacheLimit(kPixmapCache);
  // Reading eight pictures and handing them to the display server takes longer than the window.
  new AfterFirstPaint([] { QApplication::setWindowIcon(programIcon()); });
  Pointer::listen();

  windows.Splash = &splash;
  windows.Main = &main;
  windows.Open = &open;
  windows.Finished = &finished;
  windows.ShowEditor = [this] { edit.Show(); };

  edit.ShowPlay = [this] { main.Show(); };
  edit.ShowAbout = [this](Form& owner) { splash.ShowModal(&owner); };
  edit.SetChooserEdit = [this](bool on) { open.fEdit = on; };
}

void Wiring::start() {
  const WithoutPlugins quick;
  basStartup::Main([this] { splash.Show(); });
}

void Wiring::close() {
  edit.fFileChanged = false;
  for (Form* form : std::initializer_list<Form*>{&finished, &open, &splash, &main, &edit})
    form->Unload();
}
