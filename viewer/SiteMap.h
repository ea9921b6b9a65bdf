#pragma once

#include <QList>
#include <QString>

/// The table of contents (.hhc) or the index (.hhk) of a compiled help file: nested lists of
/// <OBJECT type="text/sitemap">, each with a <param name="Name"> and a <param name="Local">.
namespace SiteMap {

struct Entry {
  int level = 0;  ///< 0 for the outermost list; at most 31
  QString name;
  QString page;  ///< a page's path, maybe with "#" and a place in it; empty for a mere heading
};

/// The entries in their order. Takes whatever it is given; at most 50 000 entries are read.
QList<Entry> parse(const QString& text);

}  // namespace SiteMap
