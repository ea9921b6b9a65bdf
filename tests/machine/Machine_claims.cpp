// What must come of the steps, and what a person must see.
#include <QApplication>
#include <QFrame>
#include <QMessageBox>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/basTiles.h"
#include "tests/files/FileBytes.h"
#include "tests/machine/Machine.h"
#include "tests/machine/Sight.h"

namespace fs = std::filesystem;

namespace machine {

namespace {

constexpr double kCentred = 4;  // pixels by which a carried piece may miss the pointer
constexpr double kThrown = 4;   // device pixels by which our own placing may move the pointer

std::vector<int> types(const std::vector<Laid>& laid) {
  std::vector<int> result;
  for (const Laid& piece : laid) result.push_back(piece.card.type);
  std::sort(result.begin(), result.end());
  return result;
}

std::string number(double value) {
  return QString::number(value).toStdString();
}

std::string text(const QPointF& point) {
  return "(" + number(point.x()) + ", " + number(point.y()) + ")";
}

/// Every cell whose number a coordinate may be rounded to.
std::set<int> cellsAt(double from, double to, int tile) {
  std::set<int> cells;
  for (int x = static_cast<int>(std::floor(from)); x <= static_cast<int>(std::ceil(to)); ++x)
    cells.insert(x / tile);
  return cells;
}

std::vector<Cell> pairs(const std::set<int>& columns, const std::set<int>& rows) {
  std::vector<Cell> cells;
  for (int column : columns)
    for (int row : rows) cells.push_back({column, row});
  return cells;
}

/// Device pixels: when asked, the server tells of whole logical pixels; events tell of fractions.
double rounding() {
  return qApp->devicePixelRatio() > 1 ? qApp->devicePixelRatio() / 2 : 0;
}

Table changedHand(Table table, int quarters) {
  if (quarters == 0) table.hand->mirror();
  for (int i = 0; i < quarters; ++i) table.hand->turn();
  return table;
}

}  // namespace

/// The cells that may be under the hand: a place between two pixels may be rounded either way.
std::vector<Cell> Machine::cellsBelow(Side side) const {
  const double slack = rounding();
  const QPointF at = Sight::onPicture(*control(side), mouse_->hand());
  const int s = control(side)->TileWidth();
  return pairs(cellsAt(at.x() - slack, at.x() + slack, s),
               cellsAt(at.y() - slack, at.y() + slack, s));
}

/// The cells nearest to the piece's corner: where it was seen, or where it is about to be drawn.
std::vector<Cell> Machine::cellsForCorner(Side side) const {
  const int s = control(side)->TileWidth();
  QPointF corner;
  double slack = kCentred;
  if (drawn_ && drawn_->side == side) {
    corner = drawn_->corner;
    slack = rounding();
  } else {
    corner = Sight::cornerFor(*control(side), *carried(), middle(side));
    if (QApplication::activeWindow() != stage()->Window()) slack = s;  // it is not seen there
  }
  const double half = s / 2.0;
  return pairs(cellsAt(corner.x() + half - slack, corner.x() + half + slack, s),
               cellsAt(corner.y() + half - slack, corner.y() + half + slack, s));
}

Machine::Outcome Machine::exactly(const Table& table) const {
  return [table](const Table& now) { return now == table; };
}

void Machine::expectPress(Side side, Qt::MouseButton button) {
  if (!table_.hand) return expectPickUp(side);
  if (button == Qt::LeftButton) return expectLayDown(side);
  if (button == Qt::RightButton) return expectChange(1, side);
  if (button == Qt::MiddleButton && !easy_[side]) return expectChange(0, side);
  if (button != Qt::NoButton) return;
  // The second press of a double-click: of which button, and whether it is one, the toolkit knows.
  expectLayDown(side);
  for (int quarters : {0, 1}) outcomes_.push_back(exactly(changedHand(table_, quarters)));
}

void Machine::expectPickUp(Side side) {
  outcomes_.clear();
  pickedUp_.clear();
  for (const Cell& cell : cellsBelow(side)) {
    Table taken = table_;
    taken.take(side, cell);
    outcomes_.push_back(exactly(taken));
    const int which = table_.areas.at(side).at(cell);
    if (which < 0) continue;
    const Laid& laid = table_.areas.at(side).laid.at(static_cast<std::size_t>(which));
    pickedUp_.push_back({side, laid.corner, laid.card});
  }
}

void Machine::expectLayDown(Side side) {
  outcomes_.clear();
  for (const Cell& corner : cellsForCorner(side)) {
    Table laid = table_;
    laid.lay(side, corner);
    outcomes_.push_back(exactly(laid));
  }
}

/// A turn or a mirroring of the carried piece; in easy mode a question comes first.
void Machine::expectChange(int quarters, Side side) {
  if (easy_[side])
    question_ = Question{quarters, side};
  else
    outcomes_ = {exactly(changedHand(table_, quarters))};
}

/// A piece button, the trash or an arrow. With 15 pieces on the board a message comes instead.
void Machine::expectEditorButton(int which) {
  Table changed = table_;
  if (which < PENTO::kTypes) {
    if (table_.areas[kBoard].laid.size() >= 15) return;
    PENTO piece;
    piece.PentoType(static_cast<std::int16_t>(which));
    changed.hand = cardOf(piece, false);
  } else if (which == PENTO::kTypes) {
    changed.hand.reset();
  } else {
    constexpr Cell kWays[] = {{0, -1}, {-1, 0}, {1, 0}, {0, 1}};
    const Cell way = kWays[which - PENTO::kTypes - 1];
    changed.areas[kBoard].shift(way.column, way.row);
  }
  outcomes_ = {exactly(changed)};
}

Machine::Outcome Machine::loadedForPlay(const fs::path& file) const {
  const std::optional<Area> puzzle = areaIn(bytesOf(file));
  return [puzzle](const Table& now) {
    return puzzle && !now.hand && now.areas[kBoard].laid.empty() &&
           now.areas[kBoard].cells == puzzle->cells &&
           types(now.areas[kTray].laid) == types(puzzle->laid);
  };
}

/// A puzzle may be loaded, or the editor's board be cleared, or nothing may come of it.
void Machine::expectFiles() {
  outcomes_.push_back([this](const Table& now) { return anyFileLoaded(now); });
}

bool Machine::anyFileLoaded(const Table& now) const {
  if (!playing()) {
    Table cleared = table_;
    cleared.areas[kBoard].laid.clear();
    if (now == cleared) return true;
    cleared.hand.reset();
    if (now == cleared) return true;
  }
  for (const fs::path& file : installation_.puzzles()) {
    if (playing() && loadedForPlay(file)(now)) return true;
    const std::optional<Area> puzzle = areaIn(bytesOf(file));
    if (!playing() && puzzle && !now.hand && now.areas[kBoard].laid == puzzle->laid) return true;
  }
  return false;
}

void Machine::judge() {
  Form* now = stage();
  if (!now) {
    stage_ = nullptr;
    return;
  }
  if (!stageIsFree()) heldOnBoard_ = false;  // a dialog ends what was pressed before
  const Table table = seen();
  if (now != stage_) {
    stage_ = now;
    if (table.hand) fail("a new window carries a piece");
    easy_[kBoard] = easy_[kTray] = false;
    question_.reset();
    origin_.reset();
    heldOnBoard_ = false;  // what was pressed is gone
  } else if (std::none_of(outcomes_.begin(), outcomes_.end(),
                          [&](const Outcome& outcome) { return outcome(table); })) {
    fail("the pieces are not where they should be after " + last_ +
         ".\n  Before: " + machine::text(table_) + "\n  now:    " + machine::text(table));
  }
  judgeSolved(table);
  if (question_ && !qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
    fail("easy mode has not asked");
  const double ratio = qApp->devicePixelRatio();
  if (mouse_->thrown() * ratio > kThrown)
    fail("the pointer was thrown " + number(mouse_->thrown()) + " pixels");
  noticeOrigin(table);
  table_ = table;
  outcomes_ = {unchanged()};
}

/// From where the piece in hand was taken; a new piece comes from nowhere.
void Machine::noticeOrigin(const Table& now) {
  if (now.hand && table_.hand && now.hand->object == table_.hand->object) return;
  origin_.reset();
  for (Side side : {kBoard, kTray})
    for (const Laid& laid : table_.areas.at(side).laid)
      if (now.hand && laid.card.object == now.hand->object)
        origin_ = PickedUp{side, laid.corner, laid.card};
}

/// The pointer stands in the middle of a piece that was picked up.
void Machine::judgePickUp() {
  const std::vector<PickedUp> candidates = std::exchange(pickedUp_, {});
  const auto found = std::ranges::find_if(candidates, [this](const PickedUp& candidate) {
    return carried() && cardOf(*carried()).object == candidate.card.object;
  });
  if (found == candidates.end() || !control(found->side)) return;
  const PickedUp& picked = *found;
  const double s = control(picked.side)->TileWidth();
  const QPointF middle((picked.corner.column + picked.card.width() / 2.0) * s,
                       (picked.corner.row + picked.card.height() / 2.0) * s);
  const QPointF at = Sight::onPicture(*control(picked.side), mouse_->hand());
  if (mouse_->placing != Mouse::Placing::DoesNothing &&
      (std::abs(at.x() - middle.x()) > kCentred || std::abs(at.y() - middle.y()) > kCentred))
    fail("a piece was picked up, but the pointer is at " + text(at) + ", not in its middle " +
         text(middle));
  mouse_->forgive();
}

void Machine::judgeSolved(const Table& now) {
  if (!playing()) return;
  const bool dropped =
      table_.hand && !now.hand && now.areas[kBoard].laid.size() > table_.areas[kBoard].laid.size();
  const bool full = now.areas[kBoard].freeCells() == 0;
  if (dropped && full != program_->finished.Loaded())
    fail(full ? "the puzzle is solved, and nobody says so" : "the puzzle is not solved");
}

/// Before the ticks, of the control under the hand alone: the other one may still show the piece
/// as it left.
void Machine::look(bool ticked) {
  if (!stageIsFree() || stage()->Minimized()) return;
  if (QApplication::activeWindow() != stage()->Window()) return;
  const auto* cover = stage()->Window()->findChild<QFrame*>("fraCover");
  if (cover && cover->isVisible()) fail("the boards are covered");
  const std::optional<Side> under =
      mouse_->hand() == mouse_->at() ? sideUnderPointer() : sideUnderHand();
  for (Side side : {kBoard, kTray})
    if (control(side) && (ticked || (boardsHear() && side == under))) lookAt(side);
}

/// The grid and nothing else, or the carried piece at the pointer; in the control under the pointer
/// it must be seen.
void Machine::lookAt(Side side) {
  const PENTOWINDOW& shown = *control(side);
  const std::string where = side == kBoard ? "the board " : "the tray ";
  const PentoRef piece = carried();
  const Sight::Seen seen = Sight::look(shown, piece.get(), middle(side));
  if (!seen.wrong.empty()) fail(where + seen.wrong);
  const QPointF inside = shown.mapFromGlobal(mouse_->hand());
  const double edge = std::max(rounding(), 0.5);
  const bool over = boardsHear() &&
                    QRectF(shown.rect()).adjusted(edge, edge, -edge, -edge).contains(inside) &&
                    (mouse_->led() || mouse_->over() == stage()->Window()->windowHandle());
  if (piece && over && !seen.corner && Sight::wouldBeSeen(shown, *piece, middle(side)))
    fail(where + "does not show the piece that is carried over it");
  const bool held = mouse_->led() ? sideUnderHand() == side
                                  : sideUnderPointer() == side && mouse_->hand() == mouse_->at();
  if (piece && seen.corner && held) drawn_ = Drawn{side, *seen.corner};
}

/// What a file begins with is the arrangement on the editor's board, piece by piece as they were
/// laid.
void Machine::checkSaved(const fs::path& file, const std::string& bytes) {
  if (file.extension() != ".qzl") return;
  const std::optional<Area> saved = areaIn(bytes);
  const std::vector<Laid>& laid = table_.areas[kBoard].laid;
  std::set<Cell> covered;
  for (const Laid& piece : laid)
    for (const Cell& cell : piece.card.cells)
      covered.insert({piece.corner.column + cell.column, piece.corner.row + cell.row});
  if (!saved || saved->laid != laid || saved->cells != covered)
    fail("what was saved is not what lies on the board");
}

}  // namespace machine
