#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>
#include <QString>

/// How one viewer asks another to show a topic: a line with the topic number goes there, the line
/// "taken" comes back.
///
/// Trust: the process at the other end must run as the same user (SO_PEERCRED, unix(7)). A message
/// has at most 4 KiB, and the whole exchange at most 500 ms, on both sides.
namespace TopicSocket {

inline constexpr int kDeadlineMilliseconds = 500;
inline constexpr int kLongestMessage = 4096;

enum class Answer {
  Taken,   ///< a viewer shows the topic
  Nobody,  ///< nobody listens there, or the listener has just gone
  None,    ///< somebody listens, but gave no right answer in time
};
Answer ask(const QString& path, int topic);

/// The side that is asked.
class Server : public QObject {
  Q_OBJECT
 public:
  explicit Server(QObject* parent = nullptr);

  /// Takes the path, which nobody else may be using. False when that is not possible.
  bool listen(const QString& path);

 signals:
  /// Comes after the answer, so that showing the topic keeps nobody waiting.
  void topicWanted(int topic);

 private:
  void answerAll();
  void answer(QLocalSocket* socket);

  QLocalServer server_;
};

}  // namespace TopicSocket
