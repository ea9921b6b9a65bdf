#pragma once

#include <QAbstractNativeEventFilter>
#include <QString>
#include <atomic>

/// Counts what goes wrong between the program and its display while the object lives: errors that
/// the X server sends on the program's connection, and warnings of the toolkit. Make one on the
/// user-interface thread, once the application object exists; only one at a time.
///
/// One error is told apart: closing a modal window, the toolkit asks which window lies under the
/// pointer while the window manager may be destroying the frame there (QTBUG-56893). It expects the
/// BadWindow that may come of it, and says nothing.
class DisplayErrors : public QAbstractNativeEventFilter {
 public:
  DisplayErrors();
  ~DisplayErrors() override;
  DisplayErrors(DisplayErrors&&) = delete;

  int serverErrors() const { return serverErrors_; }
  int lookupsInVain() const { return lookupsInVain_; }  ///< the toolkit's, as told above
  int warnings() const;                                 ///< each is printed as ever, too

 protected:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  std::atomic<int> serverErrors_ = 0;
  std::atomic<int> lookupsInVain_ = 0;
};
