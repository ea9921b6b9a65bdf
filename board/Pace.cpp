#include "board/Pace.h"

namespace {

constexpr int kTick = 1;  // milliseconds
// The toolkit lets coarse timers meet at multiples of 25; it takes 20 for precise.
constexpr int kRestingTick = 25;

}  // namespace

Pace::Pace(QObject* owner, std::function<void()> tick) : tmrHideFloat_(new QTimer(owner)) {
  tmrHideFloat_->setObjectName("tmrHideFloat");
  tmrHideFloat_->setTimerType(Qt::PreciseTimer);
  tmrHideFloat_->setInterval(kTick);
  QObject::connect(tmrHideFloat_, &QTimer::timeout, owner, std::move(tick));
}

void Pace::start() {
  rest(false);
  tmrHideFloat_->start();
}

void Pace::rest(bool resting) {
  tickEvery(resting ? kRestingTick : kTick);
}

void Pace::tickEvery(int milliseconds) {
  if (tmrHideFloat_->interval() == milliseconds) return;
  tmrHideFloat_->setTimerType(milliseconds == kTick ? Qt::PreciseTimer : Qt::CoarseTimer);
  tmrHideFloat_->setInterval(milliseconds);
}
