#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <QUrl>
#include <memory>
#include <optional>

#include "viewer/HelpFile.h"
#include "viewer/SiteMap.h"

/// A compiled help file as its reader sees it: pages with addresses, topics, contents and index.
///
/// Addresses: a page's is "chm:/folder/page.html", maybe with "#" and a place in it.
class HelpBook {
 public:
  /// Null when the device holds no compiled help file or a damaged one.
  static std::unique_ptr<HelpBook> open(std::unique_ptr<QIODevice> device);

  const QString& title() const { return title_; }
  const QList<SiteMap::Entry>& contents() const { return contents_; }
  const QList<SiteMap::Entry>& index() const { return index_; }

  QUrl startPage() const { return address(startPage_); }
  /// The page of a topic number, by the file's own table; empty when it has no such topic.
  QUrl topicPage(quint32 topic) const;
  /// The address of a page as contents, index and topics name it.
  static QUrl address(const QString& page);
  /// All pages, in the order of the file.
  QList<QUrl> pages() const;

  bool contains(const QUrl& address) const;
  std::optional<QByteArray> bytes(const QUrl& address) const;
  /// A page's source; nothing when it is missing, damaged, or no page that can be shown.
  std::optional<QString> page(const QUrl& address) const;
  /// A picture, or a null one.
  QImage picture(const QUrl& address) const;
  /// The picture that these bytes hold, in any format that the toolkit reads and 256 MiB at most
  /// (the toolkit's own limit), or a null one.
  static QImage decoded(QByteArray bytes);

 private:
  explicit HelpBook(std::unique_ptr<HelpFile> file);
  QList<SiteMap::Entry> siteMap(const QString& named, const QString& ending) const;
  QString findStartPage(const QString& named) const;
  /// The file behind an address: as it stands, or with its percent signs resolved once more.
  QString pathOf(const QUrl& address) const;

  std::unique_ptr<HelpFile> file_;
  QString title_;
  QString startPage_;
  QHash<quint32, QString> topics_;
  QList<SiteMap::Entry> contents_;
  QList<SiteMap::Entry> index_;
};
