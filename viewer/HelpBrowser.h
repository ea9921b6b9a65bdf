#pragma once

#include <QTextBrowser>

#include "viewer/HelpBook.h"

/// Shows the pages of one help book, which must outlive what is shown of it.
///
/// Pages are paper: dark on white, whatever the desktop's colours. They run no scripts and get
/// nothing from outside the book: what is not in it is an empty text or an empty picture. Their
/// tool tips are plain text.
class HelpBrowser : public QTextBrowser {
  Q_OBJECT
 public:
  explicit HelpBrowser(QWidget* parent);

  void setBook(const HelpBook* book);
  /// Goes to a page of the book, or says on the page that it has none there.
  void show(const QUrl& address);
  /// Shows a message in place of a page.
  void showMessage(const QString& title, const QString& text);
  /// Marks the words wherever they stand on the page, and scrolls to the first that was found.
  void highlight(const QString& words);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  bool viewportEvent(QEvent* event) override;

 signals:
  /// A link that leads out of the book was followed.
  void leftBook(const QUrl& address);

 private:
  void follow(const QUrl& link);
  QString pageAt(const QUrl& address) const;

  const HelpBook* book_ = nullptr;
};
