#pragma once

#include <QTimer>
#include <functional>

/// The pace of a control's tracking tick: every millisecond, or at rest while a tick would change
/// nothing that anyone can see. At rest it may be a little early or late, so that the timers of
/// both controls of a window wake the program together.
class Pace {
 public:
  /// Calls `tick` while it runs. It is found by the name "tmrHideFloat" below its owner.
  Pace(QObject* owner, std::function<void()> tick);

  void start();  ///< at full pace
  void stop() { tmrHideFloat_->stop(); }
  void rest(bool resting);

 private:
  void tickEvery(int milliseconds);

  QTimer* tmrHideFloat_;
};
