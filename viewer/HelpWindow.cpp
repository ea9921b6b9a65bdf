#include "viewer/HelpWindow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include "platform/LargeText.h"
#include "platform/PlainText.h"
#include "platform/Shell.h"
#include "viewer/HelpBrowser.h"
#include "viewer/NavigationPane.h"

namespace {

constexpr int kWidth = 940;
constexpr int kHeight = 680;
constexpr int kNavigationWidth = 270;
constexpr double kMostOfScreen = 0.9;
constexpr int kMessageMilliseconds = 8000;

}  // namespace

HelpWindow::HelpWindow(const QString& helpFile)
    : helpFile_(QFileInfo(helpFile).absoluteFilePath()),
      browser_(new HelpBrowser(this)),
      navigation_(new NavigationPane(this)) {
  setObjectName("helpWindow");
  setWindowIcon(style()->standardIcon(QStyle::SP_DialogHelpButton));
  browser_->setObjectName("page");
  auto* splitter = new QSplitter(this);
  splitter->addWidget(navigation_);
  splitter->addWidget(browser_);
  splitter->setStretchFactor(1, 1);
  const QSize large = QSize(kWidth, kHeight) * LargeText::wanted(*this);
  const int navigation = large.width() * kNavigationWidth / kWidth;
  splitter->setSizes({navigation, large.width() - navigation});
  splitter->setChildrenCollapsible(false);
  setCentralWidget(splitter);
  resize(large.boundedTo(screen()->availableSize() * kMostOfScreen));
  buildToolBar();
  statusBar()->setSizeGripEnabled(true);

  connect(browser_, &QTextBrowser::sourceChanged, navigation_, &NavigationPane::showPlace);
  connect(browser_, &HelpBrowser::leftBook, this, &HelpWindow::openOutside);
  connect(browser_, &QTextBrowser::highlighted, this, [this](const QUrl& link) {
    statusBar()->showMessage(link.scheme() == "chm" ? QString()
                                                    : PlainText::plain(link.toDisplayString()));
  });
  connect(navigation_, &NavigationPane::pageWanted, this,
          [this](const QUrl& page, const QString& found) {
            browser_->show(page);
            if (!found.isEmpty()) browser_->highlight(found);
          });
}

HelpWindow::~HelpWindow() {
  browser_->setBook(nullptr);
  navigation_->setBook(nullptr);
}

QAction* HelpWindow::addTool(const QString& text, const QString& name, const QKeySequence& key,
                             const std::function<void()>& act) {
  auto* action = new QAction(text, this);
  action->setObjectName(name);
  action->setShortcut(key);
  action->setToolTip(text + " (" + key.toString(QKeySequence::NativeText) + ")");
  connect(action, &QAction::triggered, this, act);
  return action;
}

void HelpWindow::buildToolBar() {
  QToolBar* bar = addToolBar(tr("Pages"));
  bar->setObjectName("pages");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setContextMenuPolicy(Qt::NoContextMenu);
  QAction* back = addTool(tr("Back"), "back", QKeySequence::Back, [this] { browser_->backward(); });
  QAction* forward =
      addTool(tr("Forward"), "forward", QKeySequence::Forward, [this] { browser_->forward(); });
  QAction* start = addTool(tr("Start"), "start", Qt::ALT | Qt::Key_Home, [this] { showTopic(0); });
  QAction* larger =
      addTool(tr("Larger"), "larger", QKeySequence::ZoomIn, [this] { browser_->zoomIn(); });
  QAction* smaller =
      addTool(tr("Smaller"), "smaller", QKeySequence::ZoomOut, [this] { browser_->zoomOut(); });
  QAction* find =
      addTool(tr("Search"), "find", QKeySequence::Find, [this] { navigation_->startSearch(); });
  QAction* close = addTool(tr("Close"), "close", QKeySequence::Close, [this] { this->close(); });
  close->setShortcuts({QKeySequence::Close, QKeySequence(Qt::Key_Escape)});
  back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
  forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
  start->setIcon(style()->standardIcon(QStyle::SP_DirHomeIcon));
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  bar->addActions({back, forward, start});
  bar->addSeparator();
  bar->addActions({larger, smaller});
  bar->addSeparator();
  bar->addAction(find);
  addAction(close);
}

void HelpWindow::readBook() {
  const QDateTime changed = QFileInfo(helpFile_).lastModified();
  if (book_ && changed == readAt_) return;
  browser_->setBook(nullptr);
  navigation_->setBook(nullptr);
  auto file = std::make_unique<QFile>(helpFile_);
  book_ = file->open(QIODevice::ReadOnly) ? HelpBook::open(std::move(file)) : nullptr;
  readAt_ = changed;
  browser_->setBook(book_.get());
  navigation_->setBook(book_.get());
  const QString title = book_ ? book_->title() : QString();
  setWindowTitle(PlainText::plain(title.isEmpty() ? QFileInfo(helpFile_).fileName()
                                                  : tr("%1 Help").arg(title)));
}

void HelpWindow::showTopic(int topic) {
  readBook();
  browser_->setFocus();
  const QString path = QDir::toNativeSeparators(helpFile_);
  if (!book_)
    return browser_->showMessage(
        QFileInfo::exists(helpFile_) ? tr("This is not a readable help file")
                                     : tr("The help file is missing"),
        QFileInfo::exists(helpFile_)
            ? tr("%1 is damaged, or it is not a compiled help file.").arg(path)
            : tr("There is no file %1. Installing the program again brings it back.").arg(path));
  const QUrl page = topic == 0 ? book_->startPage() : book_->topicPage(static_cast<quint32>(topic));
  if (page.isValid()) return browser_->show(page);
  browser_->showMessage(topic == 0 ? tr("Nothing to show") : tr("Topic not found"),
                        topic == 0 ? tr("This help file has no pages.")
                                   : tr("This help file has no topic %1.").arg(topic));
}

void HelpWindow::openOutside(const QUrl& address) {
  const QString shown = PlainText::plain(address.toDisplayString());
  const auto tell = [window = QPointer(this), shown] {
    if (window)
      window->statusBar()->showMessage(tr("This link could not be opened: %1").arg(shown),
                                       kMessageMilliseconds);
  };
  if (!Shell::open(address.toString(QUrl::FullyEncoded).toStdString(), tell)) tell();
}
