#include "platform/PendingEvents.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>
#include <deque>

namespace {

/// How often a waiting queue looks whether the loops have ended.
constexpr int kRetryMilliseconds = 10;

int loops = 0;
std::deque<std::function<void()>> waiting;

void runAll() {
  while (!waiting.empty()) {
    const std::function<void()> work = std::move(waiting.front());
    waiting.pop_front();
    work();
  }
}

void runWhenFirst() {
  if (waiting.empty()) return;
  if (loops > 0 || QThread::currentThread()->loopLevel() > 1)
    QTimer::singleShot(kRetryMilliseconds, qApp, runWhenFirst);
  else
    runAll();
}

}  // namespace

NestedLoop::NestedLoop() {
  ++loops;
}
NestedLoop::~NestedLoop() {
  --loops;
}
int NestedLoop::depth() {
  return loops;
}

void processPendingEvents() {
  const NestedLoop nested;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void atFirstLevel(std::function<void()> work) {
  waiting.push_back(std::move(work));
  if (waiting.size() == 1) QTimer::singleShot(0, qApp, runWhenFirst);
}

void finishFirstLevelWork() {
  runAll();
}
