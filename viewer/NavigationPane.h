#pragma once

#include <QTabWidget>
#include <memory>

#include "viewer/HelpBook.h"
#include "viewer/PageSearch.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTreeWidget;
class QTreeWidgetItem;

/// The ways to a page of a help book: its contents, its index and a search for words.
/// The book must outlive the pane or the next setBook.
class NavigationPane : public QTabWidget {
  Q_OBJECT
 public:
  explicit NavigationPane(QWidget* parent);

  void setBook(const HelpBook* book);
  /// Marks the page that is being shown in the contents.
  void showPlace(const QUrl& page);
  /// Opens the search with the keyboard in its field.
  void startSearch();

 signals:
  /// A page was chosen; `found` is what was searched for, or empty.
  void pageWanted(const QUrl& page, const QString& found);

 private:
  void buildContents();
  void buildIndex();
  void buildSearch();
  void chooseOnClick(QListWidget* list);
  void fillContents();
  void fillIndex();
  void filterIndex(const QString& beginning);
  void search();
  void choose(const QTreeWidgetItem* item);
  void choose(const QListWidgetItem* item, const QString& found);

  const HelpBook* book_ = nullptr;
  std::unique_ptr<PageSearch> pages_;
  QTreeWidget* contents_;
  QLineEdit* indexWord_;
  QListWidget* index_;
  QLineEdit* words_;
  QListWidget* hits_;
};
