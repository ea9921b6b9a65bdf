#pragma once

#include <QAbstractNativeEventFilter>
#include <QString>
#include <atomic>

/// Counts what goes wrong between the program and its display while the object lives: errors that
/// the X server sends on the program's connection, and warnings of the toolkit. Make one on the
/// user-interface thread, once the application object exists; only one at a time.
class DisplayErrors : public QAbstractNativeEventFilter {
 public:
  DisplayErrors();
  ~DisplayErrors() override;
  DisplayErrors(const DisplayErrors&) = delete;
  DisplayErrors& operator=(const DisplayErrors&) = delete;

  int serverErrors() const { return serverErrors_; }
  int warnings() const;  ///< each is printed as ever, too

 protected:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  std::atomic<int> serverErrors_ = 0;
};
