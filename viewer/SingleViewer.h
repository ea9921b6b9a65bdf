#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

/// One viewer a user and help file: a later one hands its topic to the first and ends.
///
/// They meet at a local socket in the user's runtime folder. A request is a line with the topic
/// number, the answer is the line "shown".
class SingleViewer : public QObject {
  Q_OBJECT
 public:
  explicit SingleViewer(const QString& helpFile, QObject* parent = nullptr);

  /// True when a viewer of this help file is open and has taken the topic over.
  bool handOver(int topic) const;
  /// Becomes the viewer that takes topics over. A place that a dead viewer left is taken.
  void listen();

 signals:
  void topicWanted(int topic);

 private:
  void answer();

  QString name_;
  QLocalServer server_;
};
