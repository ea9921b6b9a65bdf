// Fingers, where they lead the hand, and what must come of them.
#include <QApplication>
#include <QPointingDevice>
#include <QTimerEvent>
#include <QtTest/QTest>
#include <cmath>

#include "tests/machine/Machine.h"

namespace machine {

namespace {

constexpr double kStrays = 12;  // logical pixels by which the finger of a tap may stray

QPointingDevice& screen() {
  static QPointingDevice* device = QTest::createTouchDevice();
  return *device;
}

bool isPartOfRest(Step::Kind kind) {
  return kind == Step::Tick || kind == Step::Look || kind == Step::Glance;
}

/// A touch screen tells of whole logical pixels.
QPointF touched(const QWidget& window, const QPointF& global) {
  return window.mapToGlobal(window.mapFromGlobal(global).toPoint());
}

enum class Does { Press, Move, Lift };

/// The first finger is number 0, and rests while others do something.
void tellFinger(QWidget& window, int finger, Does what, const QPointF& global) {
  const QPoint at = window.mapFromGlobal(global).toPoint();
  auto event = QTest::touchEvent(&window, &screen(), false);
  if (finger != 0) event.stationary(0);
  if (what == Does::Press) event.press(finger, at, &window);
  if (what == Does::Move) event.move(finger, at, &window);
  if (what == Does::Lift) event.release(finger, at, &window);
  event.commit(false);
}

}  // namespace

std::optional<Side> Machine::sideUnder(const QPointF& place) const {
  for (Side side : {kTray, kBoard})
    if (const PENTOWINDOW* shown = control(side))
      if (QRectF(shown->rect()).contains(shown->mapFromGlobal(place))) return side;
  return {};
}

/// From the middle of a piece to the finger from which it hangs, a cell below it.
QPointF Machine::below(Side side) const {
  if (!finger_ || !finger_->lifts || !carried()) return {};
  const PENTOWINDOW& shown = *control(side);
  return {0, (carried()->Height() / 2.0 + 1) * shown.TileWidth() / shown.devicePixelRatioF()};
}

/// Where the middle of the carried piece is to be seen.
QPointF Machine::middle(Side side) const {
  return mouse_->hand() - below(side);
}

/// While a finger is down, the mouse rests, and whatever else a person does comes after it is
/// lifted.
void Machine::performFinger(const Step& step) {
  if (isPartOfRest(step.kind)) return performWindow(step);
  if (step.kind < Step::Tick && step.kind != Step::Click) return;
  if (step.kind == Step::FingerMove) return fingerMove(step.spot);
  if (step.kind != Step::FingerBeside) return fingerUp();
  if (step.number % 3 == 2) return pressForLong();
  fingersTap(step.number % 3 + 1);
}

void Machine::fingerDown(const QPointF& to) {
  if (!stageIsFree() || stage()->Minimized() || mouse_->held()) return;
  QWidget& window = *stage()->Window();
  if (QApplication::activeWindow() != &window || QApplication::activePopupWidget()) return;
  const QPointF at = touched(window, to);
  const std::optional<Side> side = sideUnder(at);
  if (!side || !window.rect().contains(window.mapFromGlobal(at).toPoint())) return;
  if (mouse_->untold()) mouse_->tell();
  const PENTOWINDOW* carrier = sideUnderHand() ? control(*sideUnderHand()) : control(kBoard);
  const bool onPiece = table_.hand && carrier->FloatsAt(at);
  finger_ = Finger{at, at, !onPiece, table_.hand.has_value(), false};
  if (!onPiece) mouse_->fingerLeads(at);
  if (!table_.hand) expectPickUp(*side);
  tellFinger(window, 0, Does::Press, at);
  pickedUp_.clear();
  if (finger_ && !table_.hand) finger_->lifts = carried() != nullptr;
}

/// To a place over a board. A piece that is led by a finger hangs above it.
void Machine::fingerMove(const Spot& spot) {
  const std::optional<QPointF> to = place(spot);
  if (!to) return;
  QWidget& window = *stage()->Window();
  const bool fit = spot.where == Spot::BoardFit || spot.where == Spot::TrayFit;
  const QPointF wanted = fit ? *to + below(spot.where == Spot::BoardFit ? kBoard : kTray) : *to;
  const QPointF at = touched(window, wanted);
  if (!sideUnder(at)) return;
  drawn_.reset();
  const QPointF way = at - finger_->start;
  if (table_.hand && std::hypot(way.x(), way.y()) > kStrays)
    finger_->presses = finger_->lifts = finger_->leads = true;
  finger_->at = at;
  if (finger_->leads) mouse_->fingerLeads(at);
  tellFinger(window, 0, Does::Move, at);
}

/// The hand stays where it was: in the middle of a piece that hung above the finger.
void Machine::fingerUp() {
  const Finger finger = *finger_;
  const std::optional<Side> side = sideUnderHand();
  if (finger.presses && side) expectPress(*side, Qt::LeftButton);
  drawn_.reset();
  const QPointF hung = side ? middle(*side) : mouse_->hand();
  QWidget& window = *stage()->Window();
  const int now = done_;
  finger_.reset();
  if (finger.leads) mouse_->fingerLeaves(finger.at);
  tellFinger(window, 0, Does::Lift, finger.at);
  if (done_ == now && finger.leads && finger.lifts && carried()) mouse_->fingerLeaves(hung);
}

/// In easy mode a question would come, and end what the fingers began.
void Machine::fingersTap(int others) {
  if (easy_[kBoard] || easy_[kTray]) return;
  drawn_.reset();
  QWidget& window = *stage()->Window();
  const QPointF at = window.mapToGlobal(window.rect().center());
  finger_->lifts = finger_->leads;
  if (table_.hand) expectChange(others == 1 ? 1 : 0, kBoard);
  for (int i = 1; i <= others; ++i) tellFinger(window, i, Does::Press, at);
  for (int i = 1; i <= others; ++i) tellFinger(window, i, Does::Lift, at);
}

void Machine::pressForLong() {
  auto* timer = stage()->Window()->findChild<QTimer*>("tmrLongPress");
  if (!timer || !timer->isActive() || easy_[kBoard] || easy_[kTray]) return;
  drawn_.reset();
  finger_->presses = false;
  expectChange(1, kBoard);
  ticking_ = true;
  QTimerEvent event(timer->timerId());
  QCoreApplication::sendEvent(timer, &event);
  ticking_ = false;
}

}  // namespace machine
