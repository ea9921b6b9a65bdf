// The keys, and what must come of them.
#include <QApplication>
#include <QtTest/QTest>
#include <algorithm>

#include "tests/machine/Machine.h"
#include "tests/machine/Sight.h"

namespace machine {

namespace {

constexpr Qt::Key kKeys[] = {Qt::Key_A,      Qt::Key_7,        Qt::Key_Left,   Qt::Key_Right,
                             Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Tab,    Qt::Key_Backtab,
                             Qt::Key_Return, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Escape,
                             Qt::Key_F6,     Qt::Key_X,        Qt::Key_F3};

constexpr Cell kElsewhere{-100, -100};

std::optional<Cell> wayOf(Qt::Key key) {
  switch (key) {
    case Qt::Key_Left:
      return Cell{-1, 0};
    case Qt::Key_Right:
      return Cell{1, 0};
    case Qt::Key_Up:
      return Cell{0, -1};
    case Qt::Key_Down:
      return Cell{0, 1};
    default:
      return {};
  }
}

bool comesFirst(const Cell& a, const Cell& b) {
  return std::pair(a.row, a.column) < std::pair(b.row, b.column);
}

Cell firstAsRead(const std::set<Cell>& cells) {
  return *std::min_element(cells.begin(), cells.end(), comesFirst);
}

}  // namespace

/// Keys move and use the hand while a board has the focus; else they are the buttons'.
std::optional<Side> Machine::sideWithFocus() const {
  const QWidget* focus = QApplication::focusWidget();
  for (Side side : {kBoard, kTray})
    if (focus && focus->objectName() == "txtKey" && focus->parentWidget() == control(side))
      return side;
  return {};
}

/// Between two boards, as far as whole logical pixels tell.
bool Machine::handOnEdge() const {
  return std::ranges::any_of(std::initializer_list<Side>{kBoard, kTray}, [this](Side side) {
    if (!control(side)) return false;
    const QRectF box = control(side)->rect();
    const QPointF hand = control(side)->mapFromGlobal(mouse_->hand());
    return box.adjusted(-1, -1, 1, 1).contains(hand) && !box.adjusted(1, 1, -1, -1).contains(hand);
  });
}

/// The cells that a press of the hand may use, the nearest ones that lie on the board.
std::set<Cell> Machine::cellsOfHand(Side side) const {
  const PENTOGRID& grid = *control(side)->Grid();
  const int width = table_.hand ? table_.hand->width() : 1;
  const int height = table_.hand ? table_.hand->height() : 1;
  std::set<Cell> cells;
  for (const Cell& cell : table_.hand ? cellsForCorner(side) : cellsBelow(side))
    cells.insert({std::clamp(cell.column, 0, grid.Width() - width),
                  std::clamp(cell.row, 0, grid.Height() - height)});
  return cells;
}

void Machine::key(int which) {
  QWindow* window = QGuiApplication::focusWindow();
  if (!stageIsFree() || window != stage()->Window()->windowHandle()) return;
  if (stage()->Window()->isMinimized()) return;
  if (mouse_->untold()) mouse_->tell();
  const Qt::Key key = counted(kKeys, which);
  const std::optional<Side> focus = sideWithFocus(), under = sideUnderHand();
  if (!focus && key == Qt::Key_Return) return;  // it may push a button
  const std::optional<Cell> way = wayOf(key);
  const std::set<Cell> cells = under ? cellsOfHand(*under) : std::set<Cell>();
  const bool carries = table_.hand.has_value(), clear = !handOnEdge();
  if (focus && carries && (key == Qt::Key_A || key == Qt::Key_7 || key == Qt::Key_X))
    expectChange(0, *focus);
  if (focus && carries && (key == Qt::Key_PageDown || key == Qt::Key_PageUp))
    expectChange(key == Qt::Key_PageDown ? 1 : 3, under.value_or(playing() ? kTray : kBoard));
  if (focus && under && key == Qt::Key_Return) expectPress(*under, Qt::LeftButton);
  if (carries && key == Qt::Key_Escape && (focus || !playing())) expectTakenBack();
  const int now = done_;
  QWidget* hears = QApplication::focusWidget() ? QApplication::focusWidget() : stage()->Window();
  const bool moves = way || key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_F6;
  mouse_->byKey(moves, [&] { QTest::keyClick(hears, key); });  // to a window it would run the loop
  if (done_ != now || !stageIsFree() || window != stage()->Window()->windowHandle()) return;
  judgePickUp();
  if (clear && focus && under && way) judgeArrow(*under, cells, *way);
  if (clear && focus && (playing() || under) && (key == Qt::Key_Tab || key == Qt::Key_Backtab))
    judgeTab(under, cells, key == Qt::Key_Tab ? 1 : -1);
}

/// Where the piece came from, as it lay there; if there is no room any more, somewhere in the tray;
/// without a tray it stays in the air. A new piece is thrown away.
void Machine::expectTakenBack() {
  Table back = table_;
  back.hand.reset();
  if (!origin_) {
    outcomes_ = {exactly(back)};
    return;
  }
  Area& home = back.areas.at(origin_->side);
  const bool fits = home.fits(origin_->card, origin_->corner);
  if (fits) home.laid.push_back({origin_->card, origin_->corner});
  if (fits) {
    outcomes_ = {exactly(back)};
  } else if (playing()) {
    outcomes_ = {[back, card = origin_->card](const Table& now) {
      Table before = now;
      if (now.areas[kTray].laid.empty()) return false;
      before.areas[kTray].laid.pop_back();
      return before == back && now.areas[kTray].laid.back().card == card;
    }};
  }
}

/// An arrow moves the hand by one cell; at the side edge, to the board beside.
void Machine::judgeArrow(Side from, const std::set<Cell>& cells, const Cell& by) {
  const std::optional<Side> now = sideUnderHand();
  const PENTOGRID& grid = *control(from)->Grid();
  const int right = grid.Width() - (table_.hand ? table_.hand->width() : 1);
  const int lowest = grid.Height() - (table_.hand ? table_.hand->height() : 1);
  for (const Cell& cell : cells) {
    const Cell to{cell.column + by.column, std::clamp(cell.row + by.row, 0, lowest)};
    const bool leaves = to.column < 0 || to.column > right;
    const bool goesOver = leaves && playing() && (from == kTray) == (by.column > 0);
    if (goesOver
            ? now && *now != from
            : now == from && cellsOfHand(from).contains({std::clamp(to.column, 0, right), to.row}))
      return;
  }
  fail("an arrow has not moved the hand by one cell");
}

/// What Tab goes through, in reading order: where the pieces can be taken up, or where the corner
/// of the piece in hand stands when its first cell is on a free one.
std::vector<Cell> Machine::stopsOfTab(Side side) const {
  const Area& area = table_.areas.at(side);
  std::vector<Cell> stops;
  if (!table_.hand)
    for (const Laid& laid : area.laid) stops.push_back(laid.corner + firstAsRead(laid.card.cells));
  else
    for (const Cell& cell : area.cells)
      if (area.at(cell) < 0) stops.push_back(cell - firstAsRead(table_.hand->cells));
  std::sort(stops.begin(), stops.end(), comesFirst);
  return stops;
}

/// Tab finds the next of them, Shift+Tab the one before; from elsewhere the first or the last.
void Machine::judgeTab(std::optional<Side> from, std::set<Cell> cells, int direction) {
  const Side side = table_.hand || !playing() ? kBoard : kTray;
  if (from != side) cells = {kElsewhere};
  const std::vector<Cell> stops = stopsOfTab(side);
  if (stops.empty()) return;
  if (sideUnderHand() != side)
    return fail("the key Tab has not moved the hand to where it is of use");
  const PENTOGRID& grid = *control(side)->Grid();
  const int right = grid.Width() - (table_.hand ? table_.hand->width() : 1);
  const int lowest = grid.Height() - (table_.hand ? table_.hand->height() : 1);
  const std::set<Cell> now = cellsOfHand(side);
  const auto count = static_cast<std::ptrdiff_t>(stops.size());
  for (const Cell& cell : cells) {
    const auto at = std::find(stops.begin(), stops.end(), cell) - stops.begin();
    const std::ptrdiff_t before = at < count ? at : direction > 0 ? -1 : count;
    const Cell& to = stops[static_cast<std::size_t>((before + direction + count) % count)];
    if (now.contains({std::clamp(to.column, 0, right), std::clamp(to.row, 0, lowest)})) return;
  }
  fail("the key Tab has not moved the hand to the next place");
}

}  // namespace machine
