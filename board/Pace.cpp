#include "board/Pace.h"

#include <vector>

#include "platform/Pointer.h"

namespace {

constexpr int kTick = 1;  // milliseconds
// The toolkit lets coarse timers meet at multiples of 25; it takes 20 for precise.
constexpr int kRestingTick = 25;
constexpr int kTickWithoutNews = 50;

int tickAt(Pace::Rest rest) {
  if (rest == Pace::Rest::No) return kTick;
  return rest == Pace::Rest::UntilNews ? kTickWithoutNews : kRestingTick;
}

std::vector<Pace*>& paces() {
  static std::vector<Pace*> all;
  return all;
}

}  // namespace

Pace::Pace(QObject* owner, std::function<void()> tick)
    : tmrHideFloat_(new QTimer(owner)), tick_(std::move(tick)) {
  tmrHideFloat_->setObjectName("tmrHideFloat");
  tmrHideFloat_->setTimerType(Qt::PreciseTimer);
  tmrHideFloat_->setInterval(kTick);
  QObject::connect(tmrHideFloat_, &QTimer::timeout, owner, tick_);
  paces().push_back(this);
  Pointer::onNews(&Pace::news);
}

Pace::~Pace() {
  std::erase(paces(), this);
}

void Pace::start() {
  rest(Rest::No);
  tmrHideFloat_->start();
}

void Pace::rest(Rest rest) {
  rest_ = rest;
  heard_ = false;
  tickEvery(tickAt(rest));
}

void Pace::news() {
  for (Pace* pace : paces()) pace->hear();
}

/// The tick comes behind what the news is about; if that shows the control that it may rest on,
/// none is needed.
void Pace::hear() {
  if (rest_ != Rest::UntilNews || heard_) return;
  heard_ = true;
  QMetaObject::invokeMethod(
      tmrHideFloat_,
      [this] {
        if (heard_ && tmrHideFloat_->isActive()) tick_();
      },
      Qt::QueuedConnection);
}

void Pace::tickEvery(int milliseconds) {
  if (tmrHideFloat_->interval() == milliseconds) return;
  tmrHideFloat_->setTimerType(milliseconds == kTick ? Qt::PreciseTimer : Qt::CoarseTimer);
  tmrHideFloat_->setInterval(milliseconds);
}
