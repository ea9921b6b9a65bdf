#include "viewer/PageSearch.h"

#include <algorithm>

#include "viewer/HtmlText.h"

namespace {

bool holdsAll(const QString& text, const QStringList& words) {
  return std::all_of(words.begin(), words.end(),
                     [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}  // namespace

void PageSearch::readPages() {
  if (read_) return;
  read_ = true;
  for (const QUrl& page : book_.pages()) {
    const auto html = book_.page(page);
    if (!html) continue;
    const QString title = HtmlText::title(*html);
    texts_.append({title.isEmpty() ? page.path() : title, HtmlText::words(*html), page});
  }
}

QList<PageSearch::Hit> PageSearch::find(const QString& words) {
  const QStringList wanted = words.simplified().split(' ', Qt::SkipEmptyParts);
  QList<Hit> titles;
  QList<Hit> others;
  if (wanted.isEmpty()) return others;
  readPages();
  for (const Text& text : texts_) {
    if (holdsAll(text.title, wanted))
      titles.append({text.title, text.page});
    else if (holdsAll(text.title + " " + text.words, wanted))
      others.append({text.title, text.page});
  }
  return titles + others;
}
