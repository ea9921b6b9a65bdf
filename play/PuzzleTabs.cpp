#include "play/PuzzleTabs.h"

#include <QProxyStyle>
#include <QTabBar>

#include "platform/DensePicture.h"
#include "platform/Form.h"
#include "platform/Twips.h"

namespace {

constexpr QRgb kMask = qRgb(192, 192, 192);
constexpr QSize kIconSize(32, 32);
constexpr QSize kEntrySize(72, 66);
constexpr int kTabPadding = 12;  // both sides together; the style's is too wide for five tabs

/// Tabs with less room beside their captions. Of a known style: one that a desktop's theme wraps
/// in a style of its own makes the tabs tight but clips the captions as if they were not.
class TightTabs : public QProxyStyle {
 public:
  TightTabs() : QProxyStyle("fusion") {}
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_TabBarTabHSpace ? kTabPadding
                                        : QProxyStyle::pixelMetric(metric, option, widget);
  }
};

QPixmap masked(QImage picture) {
  if (picture.isNull()) return {};
  picture = picture.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < picture.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < picture.width(); ++x)
      if (line[x] == kMask) line[x] = 0;
  }
  return QPixmap::fromImage(picture);
}

}  // namespace

PuzzleTabs::PuzzleTabs(QWidget* parent) : QTabWidget(parent) {
  setObjectName("tabGames");
  setAccessibleName("Kinds of puzzles");
  auto* style = new TightTabs;
  style->setParent(this);
  tabBar()->setStyle(style);
  setFont(Form::ControlFont());
  setUsesScrollButtons(false);
  setElideMode(Qt::ElideNone);
}

void PuzzleTabs::place(QWidget* control, double left, double top, double width, double height) {
  placed_.push_back({control, QRectF(left, top, width, height)});
}

void PuzzleTabs::resizeEvent(QResizeEvent* event) {
  QTabWidget::resizeEvent(event);
  placeAll();
}

void PuzzleTabs::showEvent(QShowEvent* event) {
  QTabWidget::showEvent(event);
  placeAll();
}

void PuzzleTabs::placeAll() {
  for (const Placed& placed : placed_) {
    const QPoint page = placed.control->parentWidget()->mapTo(this, QPoint(0, 0));
    placed.control->setGeometry(Twips::toPixels(placed.twips, *this).translated(-page));
  }
}

QListWidget* newPuzzleList(QWidget* parent, const QString& name) {
  auto* list = new QListWidget(parent);
  list->setObjectName(name);
  list->setFont(Form::ControlFont());
  list->setViewMode(QListView::IconMode);
  list->setMovement(QListView::Static);
  list->setResizeMode(QListView::Adjust);
  list->setIconSize(kIconSize);
  list->setGridSize(kEntrySize);
  list->setWordWrap(true);
  list->setTextElideMode(Qt::ElideRight);
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  return list;
}

QIcon puzzleIcon(const QString& key) {
  QIcon icon;
  for (const double ratio : {1, 2})
    icon.addPixmap(masked(densePicture("icons/" + key + ".png", ratio)));
  return icon;
}
