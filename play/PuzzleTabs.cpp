#include "play/PuzzleTabs.h"

#include <QProxyStyle>
#include <QTabBar>

#include "platform/Form.h"
#include "platform/Twips.h"

namespace {

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

}  // namespace

PuzzleTabs::PuzzleTabs(QWidget* parent) : QTabWidget(parent) {
  setObjectName("tabGames");
  setAccessibleName("Kinds of puzzles");
  auto* style = new TightTabs;
  style->setParent(this);
  tabBar()->setStyle(style);
  setFont(Form::ControlFont(*this));
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
