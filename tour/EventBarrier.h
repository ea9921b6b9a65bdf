#pragma once

#include <QAbstractNativeEventFilter>
#include <QSemaphore>
#include <QWindow>

/// Tells a script that the program has handled every event that the X server sent it so far: a
/// message to one of the program's own windows comes after all of them.
///
/// Make and destroy it on the user-interface thread; pass() belongs to the script's.
class EventBarrier : public QAbstractNativeEventFilter {
 public:
  EventBarrier();
  ~EventBarrier() override;
  EventBarrier(EventBarrier&&) = delete;

  /// Sends the message over the script's own connection to the server (an Xlib Display) and waits
  /// until it has come through. Errors: Script::Error when it does not come.
  void pass(void* display);

 protected:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  QWindow window_;
  unsigned long id_;
  QSemaphore passed_;
};
