// The viewer's window, driven by mouse and keys.
#include "viewer/HelpWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>

#include "tests/viewer/HelpFileOnDisk.h"
#include "viewer/HelpBrowser.h"

namespace {

class HelpWindowTest : public ::testing::Test {
 protected:
  void open(const QString& file, int topic = 0) {
    window = std::make_unique<HelpWindow>(file);
    window->showTopic(topic);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  }
  template <class Widget>
  Widget* find(const char* name) const {
    return window->findChild<Widget*>(name);
  }
  HelpBrowser* page() const { return static_cast<HelpBrowser*>(find<QTextBrowser>("page")); }
  std::string title() const { return page()->documentTitle().toStdString(); }
  std::string text() const { return page()->toPlainText().toStdString(); }

  std::unique_ptr<HelpWindow> window;
};

TEST_F(HelpWindowTest, GoesFromPageToPage) {
  open(sourcePath("Quinzolith.chm"));
  EXPECT_EQ(window->windowTitle(), "Quinzolith Help");
  EXPECT_LT(window->width(), window->screen()->availableSize().width()) << "a narrow screen";
  EXPECT_EQ(title(), "Welcome to Quinzolith");
  auto* back = find<QAction>("back");
  auto* forward = find<QAction>("forward");
  EXPECT_FALSE(back->isEnabled());

  page()->anchorClicked(HelpBook::address("solve.html#turn"));
  EXPECT_EQ(title(), "How to solve puzzles");
  EXPECT_TRUE(QTest::qWaitFor([&] { return page()->verticalScrollBar()->value() > 0; }));
  auto* contents = find<QTreeWidget>("contents");
  ASSERT_TRUE(contents->currentItem());
  EXPECT_EQ(contents->currentItem()->text(0), "Turning and mirroring");

  back->trigger();
  EXPECT_EQ(title(), "Welcome to Quinzolith");
  EXPECT_EQ(contents->currentItem()->text(0), "Welcome to Quinzolith");
  forward->trigger();
  EXPECT_EQ(title(), "How to solve puzzles");

  const QRect place = contents->visualItemRect(contents->topLevelItem(1));
  QTest::mouseClick(contents->viewport(), Qt::LeftButton, {}, place.center());
  EXPECT_EQ(title(), "The splash window");
  find<QAction>("start")->trigger();
  EXPECT_EQ(title(), "Welcome to Quinzolith");
}

TEST_F(HelpWindowTest, SearchesAndLooksUp) {
  open(sourcePath("Quinzolith.chm"), 1100);
  EXPECT_EQ(title(), "Choosing a puzzle");
  find<QAction>("find")->trigger();
  auto* words = find<QLineEdit>("searchWords");
  QTest::keyClicks(words, "2339 ways");
  EXPECT_EQ(find<QListWidget>("hits")->count(), 1);
  QTest::keyClick(words, Qt::Key_Return);
  EXPECT_EQ(title(), "About pentominoes");
  ASSERT_FALSE(page()->extraSelections().isEmpty());
  EXPECT_EQ(page()->extraSelections().first().cursor.selectedText(), "2339");

  auto* indexWord = find<QLineEdit>("indexWord");
  QTest::keyClicks(indexWord, "trash");
  QTest::keyClick(indexWord, Qt::Key_Return);
  EXPECT_EQ(title(), "How to create puzzles");
}

TEST_F(HelpWindowTest, ClosesByEscape) {
  open(sourcePath("Quinzolith.chm"));
  window->activateWindow();
  QTest::keyClick(page(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(HelpWindowTest, EnlargesThePage) {
  open(sourcePath("Quinzolith.chm"), 1200);
  const auto height = [this] { return page()->document()->size().height(); };
  const double before = height();
  for (int step = 0; step < 4; ++step) find<QAction>("larger")->trigger();
  EXPECT_GT(height(), before);
  for (int step = 0; step < 4; ++step) find<QAction>("smaller")->trigger();
  EXPECT_EQ(height(), before);
}

TEST_F(HelpWindowTest, SaysInTheWindowWhatIsWrong) {
  QTemporaryDir folder;
  const QString path = folder.filePath("Some help.chm");
  const auto write = [&](const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  };
  const auto expectSaid = [this](const QString& words) {
    EXPECT_TRUE(page()->toPlainText().contains(words)) << text();
  };
  const QByteArray whole = sourceBytes("Quinzolith.chm");
  open(path);
  expectSaid("missing");
  expectSaid(path);
  for (const auto& [bytes, words] :
       {std::pair{QByteArray("something else"), "not a compiled help file"},
        std::pair{whole.first(whole.size() / 2), "damaged"},
        std::pair{whole, "How to solve puzzles"}}) {  // a file that has come back is read
    write(bytes);
    window->showTopic(1200);
    expectSaid(words);
  }
  window->showTopic(77);
  expectSaid("no topic 77");
  page()->anchorClicked(HelpBook::address("nowhere.html"));
  expectSaid("nowhere.html");
}

TEST_F(HelpWindowTest, PagesReachNothingOutsideTheHelpFile) {
  QTemporaryDir folder;
  QImage secret(8, 8, QImage::Format_RGB32);
  secret.fill(Qt::red);
  const QString path = folder.filePath("secret.png");
  ASSERT_TRUE(secret.save(path));
  open(sourcePath("Quinzolith.chm"));
  for (const QString& name : {path, "file://" + path, "../../" + path}) {
    const QVariant picture = page()->loadResource(QTextDocument::ImageResource, QUrl(name));
    ASSERT_EQ(picture.typeId(), QMetaType::QImage) << "a null answer is looked for on the disk";
    EXPECT_EQ(picture.value<QImage>().size(), QSize(1, 1)) << name.toStdString();
    page()->anchorClicked(QUrl(name));
    EXPECT_EQ(text().find("PNG"), std::string::npos);
    for (const auto type : {QTextDocument::HtmlResource, QTextDocument::StyleSheetResource}) {
      const QVariant other = page()->loadResource(type, QUrl(name));
      EXPECT_FALSE(other.isNull());
      EXPECT_FALSE(other.toByteArray().contains("PNG"));
    }
  }
  page()->anchorClicked(QUrl("file:///etc/passwd"));
  EXPECT_TRUE(window->statusBar()->currentMessage().contains("could not be opened"));
}

/// The text that a tool tip shows.
QString shownTip(const QString& tip) {
  EXPECT_TRUE(Qt::mightBeRichText(tip)) << tip.left(80).toStdString();
  QTextDocument document;
  document.setHtml(tip);
  return document.toPlainText().remove(QChar(0x200b));
}

/// Everything is shown by its characters; `list` holds all that the help file names.
void expectPlain(const QAbstractItemView& list) {
  ASSERT_GT(list.model()->rowCount(), 0);
  EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0) << "long texts are to be elided";
  for (int row = 0; row < list.model()->rowCount(); ++row) {
    const QModelIndex index = list.model()->index(row, 0);
    const QString text = index.data().toString();
    EXPECT_FALSE(text.contains(QChar(0x202e)));
    const QString tip = shownTip(index.data(Qt::ToolTipRole).toString());
    EXPECT_TRUE(text.trimmed().startsWith(tip.left(900).trimmed())) << tip.toStdString();
    EXPECT_LE(list.visualRect(index).width(), list.viewport()->width());
  }
}

// A tool tip with a picture from /dev/zero once filled the memory.
TEST_F(HelpWindowTest, ShowsAForeignHelpFilesTextsAsTheyStand) {
  open(QStringLiteral(QUINZOLITH_SOURCE_DIR "/tests/viewer/hostile/hostile.chm"));
  EXPECT_EQ(window->windowTitle(), "<img src=\"/dev/zero\"> \\u202E<h1>Big Help");
  auto* contents = find<QTreeWidget>("contents");
  expectPlain(*contents);
  EXPECT_EQ(contents->topLevelItem(0)->text(0), "<img src=\"/dev/zero\">");
  EXPECT_EQ(contents->topLevelItem(3)->text(0), "one\\u202Eowt");
  EXPECT_EQ(contents->topLevelItem(5)->text(0).size(), 4000) << "cut in the data";
  expectPlain(*find<QListWidget>("index"));
  find<QAction>("find")->trigger();
  QTest::keyClicks(find<QLineEdit>("searchWords"), "title");
  expectPlain(*find<QListWidget>("hits"));

  const QPoint link = page()->cursorRect().center() + QPoint(5, 0);
  QHelpEvent rest(QEvent::ToolTip, link, page()->viewport()->mapToGlobal(link));
  QApplication::sendEvent(page()->viewport(), &rest);
  EXPECT_EQ(shownTip(QToolTip::text()), "<img src=\"/dev/zero\">");
  QTest::mouseMove(page()->viewport(), link);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window->statusBar()->currentMessage().isEmpty(); }));
  EXPECT_FALSE(window->statusBar()->currentMessage().contains(QChar(0x202e)));
}

TEST(CommandLine, TellsWrongUseApartWithoutADisplay) {
  const auto run = [](const QStringList& arguments) {
    QProcess viewer;
    viewer.setProcessEnvironment(QProcessEnvironment());
    viewer.start(QStringLiteral(QUINZOLITH_TREE "/quinzolith-help"), arguments);
    viewer.waitForFinished(60000);
    return viewer.exitCode();
  };
  for (const char* asked : {"--help", "--version"}) EXPECT_EQ(run({asked}), 0);
  for (const QStringList& wrong : {QStringList(), QStringList{"a.chm", "12x"},
                                   QStringList{"a.chm", "-1"}, QStringList{"a.chm", "1", "2"}})
    EXPECT_EQ(run(wrong), 2);
}

}  // namespace
