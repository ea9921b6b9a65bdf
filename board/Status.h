#pragma once

#include <QStringList>
#include <QWidget>

/// What a screen reader is told as it happens: a widget that shows nothing and takes no input,
/// whose name is the last thing said. The toolkit knows no announcement, so each is a change of
/// that name, with an alert. Readers ask for the name later: what is said in one handler is told
/// at once, afterwards.
class Status : public QWidget {
 public:
  explicit Status(QWidget* window);

  void say(const QString& words);

 private:
  void tell();

  QStringList words_;  ///< said and not yet told
};
