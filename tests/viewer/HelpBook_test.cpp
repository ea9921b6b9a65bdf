// The help file that ships is what its sources say, and no other file harms its reader.
#include "viewer/HelpBook.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QtEndian>
#include <algorithm>

#include "tests/viewer/HelpFileOnDisk.h"
#include "viewer/HelpTables.h"
#include "viewer/HtmlText.h"
#include "viewer/PageSearch.h"

namespace {

/// The lines of a section of the help project.
QStringList projectSection(const QString& name) {
  QStringList lines = QString::fromUtf8(sourceBytes("Quinzolith.hhp")).split('\n');
  lines.remove(0, lines.indexOf("[" + name + "]") + 1);
  QStringList section;
  for (const QString& line : lines) {
    if (line.startsWith('[')) break;
    if (!line.isEmpty()) section << line;
  }
  return section;
}

QStringList filesOnDisk() {
  QStringList files = QDir(sourcePath(".")).entryList({"*.html", "*.css"}, QDir::Files);
  for (const QString& name : QDir(sourcePath("images")).entryList({"*.png"}, QDir::Files))
    files << "images/" + name;
  files.sort();
  return files;
}

class ShippedHelp : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(book); }
  const std::unique_ptr<HelpBook> book = shippedBook();
};

TEST_F(ShippedHelp, HoldsEverySourceByteForByte) {
  QStringList named = projectSection("FILES");
  named.sort();
  EXPECT_EQ(named, filesOnDisk()) << "Quinzolith.hhp lists what lies in the folder";
  for (const QString& name : named + QStringList{"Quinzolith.hhc", "Quinzolith.hhk"}) {
    const auto bytes = book->bytes(HelpBook::address(name));
    ASSERT_TRUE(bytes) << name.toStdString();
    EXPECT_TRUE(*bytes == sourceBytes(name))
        << name.toStdString() << " has changed: build the target help-file";
  }
  EXPECT_FALSE(sourceBytes("Quinzolith.chm").contains("/home/"));
  EXPECT_FALSE(sourceBytes("Quinzolith.chm").contains("/tmp/"));
}

TEST_F(ShippedHelp, GivesEachTopicItsPage) {
  EXPECT_EQ(book->title(), "Quinzolith");
  EXPECT_EQ(book->startPage(), HelpBook::address("index.html"));
  const std::pair<quint32, QUrl> topics[] = {{1000, HelpBook::address("splash.html")},
                                             {1100, HelpBook::address("choose.html")},
                                             {1200, HelpBook::address("solve.html")},
                                             {1300, HelpBook::address("create.html")},
                                             {0, {}},
                                             {1001, {}}};
  for (const auto& [topic, page] : topics) EXPECT_EQ(book->topicPage(topic), page) << topic;
}

/// Where an address points: a page of the book, and a place that the page has.
void expectPlace(const HelpBook& book, const QUrl& address, const std::string& from) {
  const auto page = book.page(address);
  ASSERT_TRUE(page) << from << " leads to " << address.toString().toStdString();
  if (address.hasFragment()) {
    EXPECT_TRUE(page->contains("name=\"" + address.fragment() + "\""))
        << from << " leads to " << address.toString().toStdString();
  }
}

TEST_F(ShippedHelp, HasNoLinkPictureOrEntryThatLeadsNowhere) {
  EXPECT_GE(book->contents().size(), 10);
  EXPECT_GE(book->index().size(), 20);
  for (const SiteMap::Entry& entry : book->contents() + book->index())
    if (!entry.page.isEmpty())
      expectPlace(*book, HelpBook::address(entry.page), entry.name.toStdString());
  const QRegularExpression reference("(href|src)=\"([^\"]+)\"");
  for (const QUrl& address : book->pages()) {
    const auto page = book->page(address);
    ASSERT_TRUE(page);
    EXPECT_FALSE(HtmlText::title(*page).isEmpty());
    for (auto found = reference.globalMatch(*page); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QUrl target = address.resolved(QUrl(match.captured(2)));
      if (match.captured(1) == "src") {
        EXPECT_FALSE(book->picture(target).isNull()) << target.toString().toStdString();
      } else if (!target.path().endsWith(".css")) {
        expectPlace(*book, target, address.toString().toStdString());
      }
    }
  }
}

/// The pages that a reader who begins at one page comes to by links.
QSet<QString> reachedFrom(const HelpBook& book, const QUrl& start) {
  static const QRegularExpression link("<a\\s[^>]*href=\"([^\"]+)\"");
  QSet<QString> reached;
  for (QList<QUrl> left{start}; !left.isEmpty();) {
    const QUrl address = left.takeFirst();
    if (reached.contains(address.path())) continue;
    reached << address.path();
    for (auto links = link.globalMatch(book.page(address).value_or("")); links.hasNext();)
      left << address.resolved(QUrl(links.next().captured(1)));
  }
  return reached;
}

TEST_F(ShippedHelp, LeadsToEachPageByLinkContentsAndIndexWhichIsInOrder) {
  const auto named = [](const QList<SiteMap::Entry>& entries) {
    QSet<QString> pages;
    for (const SiteMap::Entry& entry : entries) pages << HelpBook::address(entry.page).path();
    return pages;
  };
  QSet<QString> all;
  for (const QUrl& page : book->pages()) all << page.path();
  EXPECT_TRUE(reachedFrom(*book, book->startPage()).contains(all));
  EXPECT_TRUE(named(book->contents()).contains(all));
  EXPECT_TRUE(named(book->index()).contains(all));
  EXPECT_TRUE(std::ranges::is_sorted(book->index(), std::less(), [](const SiteMap::Entry& entry) {
    return entry.name.toLower();
  }));
}

TEST_F(ShippedHelp, FindsPagesByTheirWords) {
  PageSearch search(*book);
  const auto hits = search.find("  SOLVE puzzles ");
  ASSERT_GE(hits.size(), 2);
  EXPECT_EQ(hits.first().page, HelpBook::address("solve.html")) << "words of a title come first";
  EXPECT_EQ(search.find("2339").size(), 1);
  EXPECT_TRUE(search.find("zeppelin").isEmpty());
  EXPECT_TRUE(search.find("stylesheet").isEmpty()) << "the source's tags are no words";
  EXPECT_TRUE(search.find("  ").isEmpty());
}

TEST(HelpTables, BelieveNoLengthAndNoOffset) {
  const QByteArray strings("\0one.html\0two", 13);
  const auto dword = [](quint32 value) {
    const quint32 little = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&little), 4);
  };
  const QByteArray pairs =
      dword(7) + dword(1) + dword(8) + dword(10) + dword(9) + dword(13) + dword(10) + dword(1);
  const auto topics = HelpTables::readTopics(dword(0xFFFFFFFF) + pairs, strings);
  EXPECT_EQ(topics, (QHash<quint32, QString>{{7, "one.html"}, {8, "two"}, {10, "one.html"}}));
  EXPECT_EQ(HelpTables::readTopics(dword(8) + pairs, strings).size(), 1);
  EXPECT_TRUE(HelpTables::readTopics("abc", strings).isEmpty());
  const QByteArray record("\3\0\0\0\2\0\377\377page", 12);
  EXPECT_EQ(HelpTables::readSystem(record).defaultPage, "page");
  EXPECT_TRUE(HelpTables::readSystem("\3\0").defaultPage.isEmpty());
}

TEST(SiteMap, TakesWhateverItIsGiven) {
  const QString deep = QString("<ul>").repeated(5000);
  const QString entry =
      "<li><OBJECT type='text/sitemap'><param name=\"Name\" value=\"A &amp; B\">"
      "<PARAM NAME=Local VALUE=a.htm></object>";
  const auto entries = SiteMap::parse("</ul></ul>" + entry + deep + entry + "<param name=");
  ASSERT_EQ(entries.size(), 2);
  EXPECT_EQ(entries[0].name, "A & B");
  EXPECT_EQ(entries[0].page, "a.htm");
  EXPECT_EQ(entries[0].level, 0);
  EXPECT_LT(entries[1].level, 100);
}

// A page cut off within a tag once crashed the search.
TEST(HtmlText, SurvivesTagsWithoutAnEnd) {
  EXPECT_EQ(HtmlText::words("a &amp; <b>b</b> &lt;c <code"), "a & b <c");
  EXPECT_EQ(HtmlText::words("&amp;<"), "&");
  EXPECT_EQ(HtmlText::title("<title>R&amp;D<"), "R&D");
  EXPECT_EQ(HtmlText::attribute(" name='a<code&amp;'", "Name"), "a<code&");
}

/// Reads all there is in a book, as far as it lets itself be read.
qsizetype readThrough(const QByteArray& bytes) {
  const auto book = HelpBook::open(deviceOf(bytes));
  if (!book) return -1;
  qsizetype size = book->contents().size() + book->index().size();
  for (const QUrl& page : book->pages())
    if (const auto html = book->page(page)) size += HtmlText::words(*html).size();
  book->picture(HelpBook::address("images/pieces.png"));
  return size;
}

TEST(DamagedHelp, IsRefusedOrReadWithoutHarm) {
  const QByteArray whole = sourceBytes("Quinzolith.chm");
  EXPECT_GT(readThrough(whole), 1000);
  for (const QByteArray& other :
       {QByteArray(), QByteArray("ITSF"), whole.chopped(1), sourceBytes("images/pieces.png"),
        sourceBytes("index.html").repeated(50)})
    EXPECT_EQ(readThrough(other), -1);
  for (qsizetype length = 0; length < whole.size(); length += whole.size() / 60 + 1)
    EXPECT_EQ(readThrough(whole.first(length)), -1) << "cut after " << length;
}

}  // namespace
