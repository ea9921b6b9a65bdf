#include "script/Script.h"

#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <thread>

namespace Script {

namespace {

constexpr int kPatience = 30'000;   // milliseconds; generous, since the sanitizers are slow
constexpr unsigned long kLook = 3;  // milliseconds between two looks at a condition
constexpr int kLastWords = 20;      // milliseconds for the script's last questions

}  // namespace

void post(const std::function<void()>& function) {
  QMetaObject::invokeMethod(qApp, function, Qt::QueuedConnection);
}

void waitFor(const std::string& what, const std::function<bool()>& condition) {
  QElapsedTimer clock;
  clock.start();
  while (!onScreen(condition)) {
    if (clock.hasExpired(kPatience)) throw Error("Waited in vain for " + what);
    QThread::msleep(kLook);
  }
}

std::string run(const std::function<void()>& script) {
  std::string trouble;
  std::atomic<bool> done = false;
  std::thread worker([&] {
    try {
      script();
    } catch (const std::exception& error) {
      trouble = error.what();
    }
    done = true;
    post([] { QCoreApplication::exit(0); });
  });
  QApplication::exec();  // the program may end before its script
  while (!done) QApplication::processEvents(QEventLoop::AllEvents, kLastWords);
  worker.join();
  return trouble;
}

}  // namespace Script
