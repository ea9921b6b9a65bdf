// What a person, the desktop and time do to the program.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimerEvent>

#include "platform/ChildAt.h"
#include "tests/machine/Machine.h"
#include "tests/machine/Sight.h"

namespace machine {

namespace {

constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
constexpr double kGlide = 12;  // logical pixels from motion to motion
constexpr int kSlowPace = 25;  // milliseconds from tick to tick
constexpr QSize kSizes[] = {{420, 340}, {640, 480}, {560, 700}, {780, 560}};

QPointF partOf(const QWidget& widget, int x, int y) {
  return QPointF(widget.mapToGlobal(QPoint(0, 0))) +
         QPointF(widget.width() * x / 100.0, widget.height() * y / 100.0);
}

}  // namespace

void Machine::perform(const Step& step) {
  outcomes_ = {unchanged()};
  if (step.kind != Step::Press && step.kind != Step::Click && !finger_) drawn_.reset();
  if (finger_) return performFinger(step);
  switch (step.kind) {
    case Step::Move:
    case Step::Glide:
    case Step::Slip:
    case Step::Tell:
    case Step::Press:
    case Step::Release:
    case Step::Click:
    case Step::Again:
    case Step::Placing:
      performPointer(step);
      break;
    case Step::FingerDown:
      if (const std::optional<QPointF> to = place(step.spot)) fingerDown(*to);
      break;
    default:
      performWindow(step);
  }
}

void Machine::performPointer(const Step& step) {
  const std::optional<QPointF> to = place(step.spot);
  switch (step.kind) {
    case Step::Move:
      if (to) mouse_->slip(*to);
      mouse_->tell();
      break;
    case Step::Glide:
      if (to) glide(*to);
      break;
    case Step::Slip:
      if (to) mouse_->slip(*to);
      break;
    case Step::Tell:
      if (mouse_->untold()) mouse_->tell();
      break;
    case Step::Press:
    case Step::Click:
      press(counted(kButtons, step.number), false);
      if (step.kind == Step::Click) mouse_->release();
      break;
    case Step::Again:
      if (easy_[kBoard] || easy_[kTray]) return;  // which of the two presses asks is the toolkit's
      if (stageIsFree()) press(Qt::NoButton, true);  // in a list it would choose
      break;
    case Step::Placing:
      mouse_->placing = static_cast<Mouse::Placing>(step.number % 3);
      break;
    default:
      mouse_->release();
  }
}

void Machine::performWindow(const Step& step) {
  const bool free = stageIsFree();
  switch (step.kind) {
    case Step::Tick:
      return tick(step.number % 2 == 0 ? kBoard : kTray);
    case Step::Glance:
    case Step::Look:
      return look(step.kind == Step::Look);
    case Step::Key:
      return key(step.number);
    case Step::Leave:
      return leave();
    case Step::Return:
      return comeBack();
    case Step::Resize:
      if (free) resize(step.number);
      return;
    case Step::Minimize:
      if (free) stage()->Window()->showMinimized();
      return;
    case Step::Restore:
      if (free) stage()->Window()->showNormal();
      return;
    case Step::Close:
      return close();
    case Step::Item:
      if (free && !stage()->Minimized()) chooseItem(step.number);
      return;
    case Step::Button:
      if (stage() && stage()->Minimized()) return;
      return pushButton(step.number);
    case Step::Puzzle:
      return choosePuzzle(step.number);
    case Step::Answer:
      return answer(step.number);
    case Step::Name:
      return name(step.number);
    default:
      return;
  }
}

std::optional<QPointF> Machine::place(const Spot& spot) const {
  const QWidget* window = stage() ? stage()->Window() : nullptr;
  switch (spot.where) {
    case Spot::Here:
      return mouse_->at() + QPointF(spot.x, spot.y);
    case Spot::BoardPiece:
      return onPiece(kBoard, spot.x, spot.y);
    case Spot::TrayPiece:
      return onPiece(kTray, spot.x, spot.y);
    case Spot::BoardFit:
      return whereItFits(kBoard, spot.x);
    case Spot::TrayFit:
      return whereItFits(kTray, spot.x);
    case Spot::BoardArea:
      if (control(kBoard)) return partOf(*control(kBoard), spot.x, spot.y);
      return {};
    case Spot::TrayArea:
      if (control(kTray)) return partOf(*control(kTray), spot.x, spot.y);
      return {};
    case Spot::Window:
      if (window) return partOf(*window, spot.x, spot.y);
      return {};
    default:
      return QPointF(2000, 1500);
  }
}

std::optional<QPointF> Machine::onPiece(Side side, int which, int cell) const {
  const std::vector<Laid>& laid = table_.areas.at(side).laid;
  if (!control(side) || laid.empty()) return {};
  const Laid& piece = counted(laid, which);
  const Cell at = *std::next(piece.card.cells.begin(), cell % 5);
  const double s = control(side)->TileWidth();
  return Sight::onDesktop(*control(side), QPointF((piece.corner.column + at.column + 0.5) * s,
                                                  (piece.corner.row + at.row + 0.5) * s));
}

std::optional<QPointF> Machine::whereItFits(Side side, int which) const {
  if (!control(side) || !table_.hand) return {};
  std::vector<Cell> free;
  for (const Cell& cell : table_.areas.at(side).cells)
    for (int left : {0, 1, 2}) {
      const Cell corner{cell.column - left, cell.row};
      if (table_.areas.at(side).fits(*table_.hand, corner)) free.push_back(corner);
    }
  if (free.empty()) return {};
  const Cell corner = counted(free, which);
  const double s = control(side)->TileWidth();
  return Sight::onDesktop(*control(side), QPointF((corner.column + table_.hand->width() / 2.0) * s,
                                                  (corner.row + table_.hand->height() / 2.0) * s));
}

void Machine::glide(const QPointF& to) {
  const QPointF from = mouse_->at();
  const QPointF way = to - from;
  const int motions = static_cast<int>(std::max(std::abs(way.x()), std::abs(way.y())) / kGlide) + 1;
  for (int i = 1; i <= motions; ++i) {
    mouse_->slip(from + way * i / motions);
    mouse_->tell();
    tick(kBoard);
    tick(kTray);
  }
}

/// Buttons, and the labels that are as good, are pushed by steps of their own.
bool Machine::overButton() const {
  QWidget* window = front();
  if (!window) return false;
  const QWidget* below = childAt(*window, window->mapFromGlobal(mouse_->at()));
  return qobject_cast<const QAbstractButton*>(below) || qobject_cast<const QLabel*>(below);
}

/// A board hears further presses while a button is held on it; of other widgets nothing is claimed.
void Machine::press(Qt::MouseButton button, bool again) {
  if (QApplication::activePopupWidget()) return;  // it would only close the menu
  if (again || mouse_->holds(button) || !sideUnderPointer() || !heldOnBoard_) mouse_->release();
  if (overButton()) return;
  if (!mouse_->held()) heldOnBoard_ = sideUnderPointer().has_value();
  if (const std::optional<Side> side = sideUnderPointer()) {
    mouse_->takeHand();
    expectPress(*side, button);
  }
  if (again) outcomes_.push_back(unchanged());  // a double-click of the left button
  if (again)
    mouse_->pressAgain();
  else
    mouse_->press(button);
  drawn_.reset();  // it may have been turned
  judgePickUp();
}

void Machine::tick(Side side) {
  if (!control(side)) return;
  auto* timer = control(side)->findChild<QTimer*>("tmrHideFloat");
  if (!timer || !timer->isActive()) return;
  if (timer->interval() > kSlowPace) return;  // until there is news a tick has nothing to mend
  ticking_ = true;
  mouse_->wait(1);
  QTimerEvent event(timer->timerId());
  QCoreApplication::sendEvent(timer, &event);
  ticking_ = false;
}

void Machine::leave() {
  desk_.show();
  desk_.activateWindow();
}

void Machine::comeBack() {
  if (QWidget* window = front()) window->activateWindow();
}

void Machine::resize(int size) {
  QWidget* window = stage()->Window();
  window->showNormal();
  window->resize(counted(kSizes, size));
}

}  // namespace machine
