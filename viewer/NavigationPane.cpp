#include "viewer/NavigationPane.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "platform/PlainText.h"

namespace {

constexpr int kAddress = Qt::UserRole;

/// Makes items as wide as their list, so that long texts end in an ellipsis.
class ElidingDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {0, QStyledItemDelegate::sizeHint(option, index).height()};
  }
};

/// A field above a list, as a tab of its own.
QWidget* fieldOverList(QLineEdit* field, QListWidget* list) {
  auto* tab = new QWidget;
  auto* layout = new QVBoxLayout(tab);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->addWidget(field);
  layout->addWidget(list);
  field->setClearButtonEnabled(true);
  list->setItemDelegate(new ElidingDelegate(list));
  return tab;
}

QListWidgetItem* itemFor(const QString& text, const QUrl& page, int indent = 0) {
  auto* item = new QListWidgetItem(QString(indent, ' ') + PlainText::plain(text));
  item->setData(kAddress, page);
  item->setToolTip(PlainText::escaped(text));
  return item;
}

}  // namespace

NavigationPane::NavigationPane(QWidget* parent)
    : QTabWidget(parent),
      contents_(new QTreeWidget),
      indexWord_(new QLineEdit),
      index_(new QListWidget),
      words_(new QLineEdit),
      hits_(new QListWidget) {
  setDocumentMode(true);
  buildContents();
  buildIndex();
  buildSearch();
}

void NavigationPane::buildContents() {
  contents_->setObjectName("contents");
  contents_->setHeaderHidden(true);
  contents_->setFrameShape(QFrame::NoFrame);
  addTab(contents_, tr("Contents"));
  connect(contents_, &QTreeWidget::currentItemChanged, this,
          [this](const QTreeWidgetItem* item) { choose(item); });
  connect(contents_, &QTreeWidget::itemClicked, this,
          [this](const QTreeWidgetItem* item) { choose(item); });
}

void NavigationPane::buildIndex() {
  indexWord_->setObjectName("indexWord");
  indexWord_->setPlaceholderText(tr("Word"));
  index_->setObjectName("index");
  addTab(fieldOverList(indexWord_, index_), tr("Index"));
  connect(indexWord_, &QLineEdit::textChanged, this, &NavigationPane::filterIndex);
  connect(indexWord_, &QLineEdit::returnPressed, this,
          [this] { choose(index_->currentItem(), {}); });
  chooseOnClick(index_);
}

void NavigationPane::buildSearch() {
  words_->setObjectName("searchWords");
  words_->setPlaceholderText(tr("Words to look for"));
  hits_->setObjectName("hits");
  addTab(fieldOverList(words_, hits_), tr("Search"));
  connect(words_, &QLineEdit::textChanged, this, &NavigationPane::search);
  connect(words_, &QLineEdit::returnPressed, this,
          [this] { choose(hits_->item(0), words_->text()); });
  chooseOnClick(hits_);
}

void NavigationPane::chooseOnClick(QListWidget* list) {
  const auto chosen = [this, list](const QListWidgetItem* item) {
    choose(item, list == hits_ ? words_->text() : QString());
  };
  connect(list, &QListWidget::itemActivated, this, chosen);
  connect(list, &QListWidget::itemClicked, this, chosen);
}

void NavigationPane::setBook(const HelpBook* book) {
  book_ = book;
  pages_ = book ? std::make_unique<PageSearch>(*book) : nullptr;
  fillContents();
  fillIndex();
  search();
}

void NavigationPane::fillContents() {
  const QSignalBlocker quiet(contents_);
  contents_->clear();
  if (!book_) return;
  QList<QTreeWidgetItem*> parents{contents_->invisibleRootItem()};
  for (const SiteMap::Entry& entry : book_->contents()) {
    parents.resize(std::min<qsizetype>(parents.size(), entry.level + 1));
    auto* item = new QTreeWidgetItem(parents.last(), {PlainText::plain(entry.name)});
    item->setData(0, kAddress, HelpBook::address(entry.page));
    item->setToolTip(0, PlainText::escaped(entry.name));
    parents << item;
  }
  contents_->expandToDepth(1);
}

void NavigationPane::fillIndex() {
  index_->clear();
  if (!book_) return;
  for (const SiteMap::Entry& entry : book_->index())
    index_->addItem(itemFor(entry.name, HelpBook::address(entry.page), 2 * entry.level));
  filterIndex(indexWord_->text());
}

/// Hides what does not hold the text, and stands on the first entry that begins with it.
void NavigationPane::filterIndex(const QString& text) {
  QListWidgetItem* best = nullptr;
  for (int row = 0; row < index_->count(); ++row) {
    QListWidgetItem* item = index_->item(row);
    const bool holds = item->text().contains(text, Qt::CaseInsensitive);
    item->setHidden(!holds);
    const bool begins = item->text().trimmed().startsWith(text, Qt::CaseInsensitive);
    if (holds &&
        (!best || (begins && !best->text().trimmed().startsWith(text, Qt::CaseInsensitive))))
      best = item;
  }
  index_->setCurrentItem(text.isEmpty() ? nullptr : best);
}

void NavigationPane::search() {
  hits_->clear();
  if (!pages_ || words_->text().trimmed().isEmpty()) return;
  for (const PageSearch::Hit& hit : pages_->find(words_->text()))
    hits_->addItem(itemFor(hit.title, hit.page));
  if (hits_->count() > 0) return;
  auto* nothing = new QListWidgetItem(tr("No page has these words."));
  nothing->setFlags(Qt::NoItemFlags);
  hits_->addItem(nothing);
}

void NavigationPane::choose(const QTreeWidgetItem* item) {
  const QUrl page = item ? item->data(0, kAddress).toUrl() : QUrl();
  if (page.isValid()) emit pageWanted(page, {});
}

void NavigationPane::choose(const QListWidgetItem* item, const QString& found) {
  const QUrl page = item ? item->data(kAddress).toUrl() : QUrl();
  if (page.isValid()) emit pageWanted(page, found);
}

/// An entry for the very place on the page is better than one for the page.
void NavigationPane::showPlace(const QUrl& page) {
  QTreeWidgetItem* best = nullptr;
  for (QTreeWidgetItemIterator at(contents_); *at; ++at) {
    const QUrl address = (*at)->data(0, kAddress).toUrl();
    if (address == page) best = *at;
    if (address == page) break;
    if (!best && address.isValid() && address.path().compare(page.path(), Qt::CaseInsensitive) == 0)
      best = *at;
  }
  const QSignalBlocker quiet(contents_);
  contents_->setCurrentItem(best);
}

void NavigationPane::startSearch() {
  setCurrentIndex(indexOf(words_->parentWidget()));
  words_->setFocus();
  words_->selectAll();
}
