#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include "viewer/HelpBook.h"

/// Finds the pages of a book that hold given words. The pages are read at the first search.
class PageSearch {
 public:
  explicit PageSearch(const HelpBook& book) : book_(book) {}

  struct Hit {
    QString title;
    QUrl page;
  };
  /// Pages that hold all of the words, whatever the case of their letters; those with all of them
  /// in the title come first, otherwise in the order of the file.
  QList<Hit> find(const QString& words);

 private:
  struct Text {
    QString title;
    QString words;
    QUrl page;
  };
  void readPages();

  const HelpBook& book_;
  bool read_ = false;
  QList<Text> texts_;
};
