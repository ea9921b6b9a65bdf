#pragma once

#include <QObject>
#include <QString>

#include "viewer/KernelLock.h"
#include "viewer/TopicSocket.h"

/// One viewer for each user, display and help file: a later one hands its topic to the first and
/// ends.
///
/// The first one holds a lock in the user's runtime folder and listens at a socket beside it. Where
/// the user has no such folder, there is no hand-over and each viewer is one of its own.
class SingleViewer : public QObject {
  Q_OBJECT
 public:
  explicit SingleViewer(const QString& helpFile, const QString& display = displayName(),
                        QObject* parent = nullptr);

  /// True when another viewer has taken the topic over. While another is just starting, waits until
  /// it listens. False: this viewer shows the topic itself, as the first one, or alone because the
  /// first one does not answer.
  bool handOver(int topic);
  /// Lets the first viewer take topics over from now on. Its window should be ready.
  void listen();

  /// The windowing system and the display on it where this program shows its windows.
  static QString displayName();

 signals:
  void topicWanted(int topic);

 private:
  QString place_;  ///< of lock and socket, without their endings; empty where there is none
  KernelLock lock_;
  TopicSocket::Server server_;
};
