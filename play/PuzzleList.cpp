#include "play/PuzzleList.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include "catalogue/Catalogue.h"
#include "platform/DensePicture.h"
#include "platform/Form.h"
#include "platform/LargeText.h"
#include "platform/PlainText.h"

namespace {

constexpr QSize kIconSize(32, 32);
constexpr QSize kEntrySize(72, 66);  // the least; columns share what room there is
constexpr int kAbove = 4;            // of an entry: the first row keeps off the frame
// A title is narrowed to as little as that, in per cent, if it stands on one line then: "Medium
// Triangle" is 2 pixels wider than a column.
constexpr int kNarrowest = 92;

/// A picture over its title. Titles are file names: they are shown as they are, and what does not
/// fit is narrowed a little, or breaks into lines, of which the last ends in dots.
class PuzzleDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale&) const override {
    return PlainText::plain(value.toString());
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return static_cast<const QListView*>(option.widget)->gridSize();
  }

  /// An entry with a title of one line is drawn here, on whole pixels, and its mark is no wider
  /// than the words: in both the styles differ by the version of the toolkit.
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem entry = option;
    initStyleOption(&entry, index);
    if (entry.fontMetrics.horizontalAdvance(entry.text) > room(entry))
      return QStyledItemDelegate::paint(painter, option, index);
    const bool chosen = entry.state.testFlag(QStyle::State_Selected);
    entry.icon.paint(painter, partOf(entry, QStyle::SE_ItemViewItemDecoration),
                     entry.decorationAlignment, chosen ? QIcon::Selected : QIcon::Normal);
    drawTitle(*painter, entry, chosen);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const int margin = marginOf(*option);
    option->rect.adjust(1 - margin, kAbove, margin - 1, 0);
    narrow(*option, room(*option));
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->decorationAlignment = Qt::AlignCenter;
    option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    option->showDecorationSelected = false;  // the title only; the picture is tinted
  }

 private:
  /// The style's, on each side of a title. It may lie over the neighbours'.
  static int marginOf(const QStyleOptionViewItem& option) {
    const QStyle& style = *option.widget->style();
    return style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
  }

  static int room(const QStyleOptionViewItem& entry) {
    return entry.rect.width() - 2 * marginOf(entry) - 1;
  }
  static QRect partOf(const QStyleOptionViewItem& entry, QStyle::SubElement part) {
    return entry.widget->style()->subElementRect(part, &entry, entry.widget);
  }

  static void drawTitle(QPainter& painter, const QStyleOptionViewItem& entry, bool chosen) {
    const QRect room = partOf(entry, QStyle::SE_ItemViewItemText);
    const int words = entry.fontMetrics.horizontalAdvance(entry.text), margin = marginOf(entry);
    const QPoint start(room.x() + (room.width() - words) / 2, room.y());
    const QRect mark(start.x() - margin, start.y(), words + 2 * margin, entry.fontMetrics.height());
    if (chosen) painter.fillRect(mark, entry.palette.highlight());
    painter.setFont(entry.font);
    painter.setPen(entry.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(start + QPoint(0, entry.fontMetrics.ascent()), entry.text);
    if (entry.state.testFlag(QStyle::State_HasFocus)) drawFocus(painter, entry, mark);
  }

  static void drawFocus(QPainter& painter, const QStyleOptionViewItem& entry, const QRect& mark) {
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(entry);
    frame.rect = mark;
    frame.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    frame.backgroundColor = entry.palette.color(QPalette::Highlight);
    entry.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, entry.widget);
  }

  /// To that many pixels, if so little is missing that it does not show.
  static void narrow(QStyleOptionViewItem& option, int room) {
    const int stretch = 100 * room / std::max(1, option.fontMetrics.horizontalAdvance(option.text));
    if (stretch >= 100 || stretch < kNarrowest) return;
    option.font.setStretch(stretch);
    option.fontMetrics = QFontMetrics(option.font);
  }
};

QPixmap masked(QImage picture) {
  if (picture.isNull()) return {};
  picture.setDevicePixelRatio(1);  // the toolkit would not take the dense one for a large icon
  picture = picture.convertToFormat(QImage::Format_ARGB32);
  picture.setAlphaChannel(picture.createMaskFromColor(Catalogue::kIconMask, Qt::MaskOutColor));
  return QPixmap::fromImage(picture);
}

}  // namespace

void PuzzleModel::fill(std::vector<PuzzleEntry> entries) {
  beginResetModel();
  entries_ = std::move(entries);
  endResetModel();
}

const PuzzleEntry& PuzzleModel::entry(const QModelIndex& index) const {
  return entries_.at(static_cast<std::size_t>(index.row()));
}

int PuzzleModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant PuzzleModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return entry(index).title;
    case Qt::DecorationRole:
      return entry(index).icon;
    case Qt::ToolTipRole:
      return PlainText::escaped(entry(index).title);
    default:
      return {};
  }
}

PuzzleList::PuzzleList(QWidget* parent, const QString& name)
    : QListView(parent), model_(new PuzzleModel(this)) {
  setObjectName(name);
  setFont(Form::ControlFont(*this));
  setModel(model_);
  setItemDelegate(new PuzzleDelegate(this));
  setFlow(LeftToRight);
  setWrapping(true);
  setResizeMode(Adjust);
  setUniformItemSizes(true);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setIconSize(kIconSize * LargeText::factor(*this));
  setGridSize(entrySize());
  setWordWrap(true);
  setTextElideMode(Qt::ElideRight);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
}

void PuzzleList::fill(std::vector<PuzzleEntry> entries) {
  model_->fill(std::move(entries));
  shareWidth();
  setCurrentIndex(model_->index(0));
}

const PuzzleEntry* PuzzleList::selected() const {
  return currentIndex().isValid() ? &model_->entry(currentIndex()) : nullptr;
}

/// A click beside the entries, or with the Ctrl key, would leave none selected.
QItemSelectionModel::SelectionFlags PuzzleList::selectionCommand(const QModelIndex& index,
                                                                 const QEvent*) const {
  return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

/// Marked titles reach a little beyond their entries.
void PuzzleList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  viewport()->update();
}

void PuzzleList::resizeEvent(QResizeEvent* event) {
  shareWidth();
  QListView::resizeEvent(event);
}

QSize PuzzleList::entrySize() const {
  return kEntrySize * LargeText::factor(*this);
}

/// The toolkit keeps room for a scroll bar even where there is none, unless there can be none.
void PuzzleList::shareWidth() {
  const QSize entry = entrySize();
  const int frames = 2 * frameWidth();
  const QSize room = size() - QSize(frames + 1, frames);  // a row that fills it all is broken
  const int columns = std::max(1, room.width() / entry.width());
  const int rows = (count() + columns - 1) / columns;
  const bool fits = rows * entry.height() <= room.height();
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
  const int bar = fits ? 0 : style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  setGridSize({(room.width() - bar) / columns, entry.height()});
}

QIcon chooserIcon(const QString& key) {
  QIcon icon;
  for (const double ratio : {1, 2})
    icon.addPixmap(masked(densePicture("icons/" + key + ".png", ratio)));
  return icon;
}
