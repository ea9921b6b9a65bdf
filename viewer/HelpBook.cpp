#include "viewer/HelpBook.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <algorithm>

#include "viewer/HelpTables.h"
#include "viewer/HtmlText.h"

namespace {

constexpr qsizetype kLongestPage = 4 << 20;

bool isPage(const QString& path) {
  return path.endsWith(".html", Qt::CaseInsensitive) || path.endsWith(".htm", Qt::CaseInsensitive);
}

/// A table that is named but cannot be read would look like one without the topic.
bool tablesAreReadable(const HelpFile& file) {
  const auto isWhole = [&](const char* name) { return !file.contains(name) || file.read(name); };
  return isWhole("/#SYSTEM") && isWhole("/#IVB") && isWhole("/#STRINGS");
}

}  // namespace

HelpBook::HelpBook(std::unique_ptr<HelpFile> file) : file_(std::move(file)) {
  const auto table = [this](const char* name) { return file_->read(name).value_or(QByteArray()); };
  const HelpTables::System system = HelpTables::readSystem(table("/#SYSTEM"));
  topics_ = HelpTables::readTopics(table("/#IVB"), table("/#STRINGS"));
  title_ = system.title.simplified();
  contents_ = siteMap(system.contentsFile, ".hhc");
  index_ = siteMap(system.indexFile, ".hhk");
  startPage_ = findStartPage(system.defaultPage);
}

std::unique_ptr<HelpBook> HelpBook::open(std::unique_ptr<QIODevice> device) {
  std::unique_ptr<HelpFile> file = HelpFile::open(std::move(device));
  if (!file || !tablesAreReadable(*file)) return nullptr;
  return std::unique_ptr<HelpBook>(new HelpBook(std::move(file)));
}

QList<SiteMap::Entry> HelpBook::siteMap(const QString& named, const QString& ending) const {
  QString path = pathOf(address(named));
  for (const QString& other : file_->paths())
    if (path.isEmpty() && other.endsWith(ending, Qt::CaseInsensitive)) path = other;
  const auto bytes = file_->read(path);
  return bytes ? SiteMap::parse(HtmlText::decode(*bytes)) : QList<SiteMap::Entry>();
}

QString HelpBook::findStartPage(const QString& named) const {
  if (contains(address(named))) return named;
  for (const SiteMap::Entry& entry : contents_)
    if (contains(address(entry.page))) return entry.page;
  const QList<QUrl> all = pages();
  return all.isEmpty() ? QString() : all.first().path();
}

QUrl HelpBook::topicPage(quint32 topic) const {
  const QString page = topics_.value(topic);
  return page.isEmpty() ? QUrl() : address(page);
}

QUrl HelpBook::address(const QString& page) {
  if (page.isEmpty()) return {};
  QString path = page.section('#', 0, 0).replace('\\', '/');
  const qsizetype archive = path.lastIndexOf("::");
  if (archive >= 0) path = path.sliced(archive + 2);
  QUrl url;
  url.setScheme("chm");
  url.setPath(QDir::cleanPath("/" + path), QUrl::DecodedMode);
  if (page.contains('#')) url.setFragment(page.section('#', 1), QUrl::DecodedMode);
  return url;
}

QList<QUrl> HelpBook::pages() const {
  QList<QUrl> addresses;
  for (const QString& path : file_->paths())
    if (isPage(path)) addresses << address(path);
  return addresses;
}

QString HelpBook::pathOf(const QUrl& address) const {
  if (address.scheme() != "chm") return {};
  const QString path = QDir::cleanPath(address.path(QUrl::FullyDecoded).replace('\\', '/'));
  if (file_->contains(path)) return path;
  const QString resolved = QUrl::fromPercentEncoding(path.toUtf8());
  return file_->contains(resolved) ? resolved : QString();
}

bool HelpBook::contains(const QUrl& address) const {
  return !pathOf(address).isEmpty();
}

std::optional<QByteArray> HelpBook::bytes(const QUrl& address) const {
  return file_->read(pathOf(address));
}

std::optional<QString> HelpBook::page(const QUrl& address) const {
  const auto source = bytes(address);
  if (!source || source->size() > kLongestPage) return std::nullopt;
  const QString html = HtmlText::decode(*source);
  if (HtmlText::nestedTooDeeply(html)) return std::nullopt;
  return html;
}

QImage HelpBook::picture(const QUrl& address) const {
  return decoded(bytes(address).value_or(QByteArray()));
}

QImage HelpBook::decoded(QByteArray bytes) {
  QBuffer buffer(&bytes);
  return QImageReader(&buffer).read();
}
