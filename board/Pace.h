#pragma once

#include <QTimer>
#include <functional>

/// The pace of a control's tracking tick: every millisecond, or at rest while a tick would change
/// nothing that anyone can see. At rest it may be a little early or late, so that the timers of
/// both controls of a window wake the program together.
class Pace {
 public:
  enum class Rest {
    No,
    UntilNews,  ///< of the pointer or of what a control shows; news brings all controls a tick at
                ///< once
    Yes,        ///< until the control ends it
  };

  /// Calls `tick` while it runs. It is found by the name "tmrHideFloat" below its owner.
  Pace(QObject* owner, std::function<void()> tick);
  ~Pace();
  Pace(Pace&&) = delete;

  void start();  ///< at full pace
  void stop() { tmrHideFloat_->stop(); }
  void rest(Rest rest);

  /// Gives all controls that rest until there is news a tick, once the current event is done.
  static void news();

 private:
  void hear();
  void tickEvery(int milliseconds);

  QTimer* tmrHideFloat_;
  std::function<void()> tick_;
  Rest rest_ = Rest::No;
  bool heard_ = false;  ///< and the tick is still to come
};
