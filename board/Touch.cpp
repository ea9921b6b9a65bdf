#include "board/Touch.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointingDevice>
#include <QStyleHints>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "board/HandKeys.h"
#include "board/PENTOWINDOW.h"
#include "platform/ChildAt.h"
#include "platform/Form.h"
#include "platform/Pointer.h"

namespace {

constexpr double kTapReach = 12;  // logical pixels by which the finger of a tap may stray

bool strays(const QPointF& from, const QPointF& to) {
  return QPointF::dotProduct(to - from, to - from) > kTapReach * kTapReach;
}

}  // namespace

Touch::Touch(QWidget& window, const HandKeys& boards)
    : window_(window), boards_(boards), tmrLongPress_(new QTimer(&window)) {
  tmrLongPress_->setObjectName("tmrLongPress");
  tmrLongPress_->setSingleShot(true);
  connect(tmrLongPress_, &QTimer::timeout, this, &Touch::turnByLongPress);
}

Touch::~Touch() {
  if (first_ && first_->leads) Pointer::stay(Pointer::position());
}

void Touch::listen() {
  if (QWindow* window = window_.windowHandle()) window->installEventFilter(this);
}

bool Touch::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
      auto& touch = *static_cast<QTouchEvent*>(event);
      if (!concerns(touch)) return false;
      touch.accept();  // else the toolkit makes a mouse of it
      for (const QEventPoint& point : touch.points()) take(point);
      return true;
    }
    case QEvent::TouchCancel:
      if (!first_) return false;
      cancel();
      return true;
    default:
      return false;
  }
}

/// Fingers on anything but a board are the toolkit's, and so is a touch pad, which moves the
/// pointer, whatever it tells of fingers beside that.
bool Touch::concerns(const QTouchEvent& event) const {
  if (event.pointingDevice()->type() != QInputDevice::DeviceType::TouchScreen) return false;
  if (Form::Unloaded(&window_) || QApplication::activePopupWidget()) return false;
  return first_ || std::ranges::any_of(event.points(), [this](const QEventPoint& point) {
           return point.state() == QEventPoint::Pressed && boards_.under(point.globalPosition());
         });
}

void Touch::take(const QEventPoint& point) {
  switch (point.state()) {
    case QEventPoint::Pressed:
      return begin(point);
    case QEventPoint::Updated:
      return move(point);
    case QEventPoint::Released:
      return end(point);
    default:
      return;
  }
}

PENTOWINDOW* Touch::carrier() const {
  PENTOWINDOW* control = boards_.underHand();
  return control && control->Floating() ? control : boards_.carrying();
}

void Touch::begin(const QEventPoint& point) {
  if (!first_) {
    if (boards_.under(point.globalPosition())) beginFirst(point);
    return;
  }
  tmrLongPress_->stop();
  others_.insert(point.id(), point.globalPosition());
  mostOthers_ = std::max(mostOthers_, others_.size());
  lifts_ = first_->leads;
  if (lifts_) PointerSurface::moveUnder(window_, Pointer::position());  // above it from now on
}

void Touch::beginFirst(const QEventPoint& point) {
  const QPointF at = point.globalPosition();
  first_ = First{point.id(), at, true, false};
  const PENTOWINDOW* carried = carrier();
  if (carried && carried->FloatsAt(at))
    return tmrLongPress_->start(QApplication::styleHints()->mousePressAndHoldInterval());
  lead(at);
  if (carried) return;
  first_->presses = false;
  press(PointerSurface::kLeft);
  lifts_ = first_ && carrier();
}

/// The hand follows the finger, and what is under it hears of it.
void Touch::lead(const QPointF& global) {
  first_->leads = true;
  Pointer::follow(global);
  PointerSurface::moveUnder(window_, global);
}

void Touch::move(const QEventPoint& point) {
  if (!first_ || point.id() != first_->id) return;
  const QPointF at = point.globalPosition();
  if (carrier() && strays(first_->start, at)) {
    tmrLongPress_->stop();
    first_->presses = true;
    lifts_ = true;
    first_->leads = true;
  }
  if (first_->leads) lead(at);
}

void Touch::end(const QEventPoint& point) {
  if (!first_) return;
  if (point.id() == first_->id)
    endFirst(point.globalPosition());
  else if (others_.contains(point.id()))
    endOther(point.id(), point.globalPosition());
}

void Touch::endFirst(const QPointF& global) {
  tmrLongPress_->stop();
  if (first_->leads) lead(global);
  if (first_->presses) press(PointerSurface::kLeft);
  cancel();
}

void Touch::endOther(int id, const QPointF& global) {
  if (strays(others_.take(id), global)) othersTap_ = false;
  if (!others_.isEmpty()) return;
  const bool taps = std::exchange(othersTap_, true);
  const bool one = std::exchange(mostOthers_, 0) == 1;
  if (taps && carrier()) press(one ? PointerSurface::kRight : PointerSurface::kMiddle);
}

void Touch::turnByLongPress() {
  first_->presses = false;
  press(PointerSurface::kRight);
}

void Touch::press(PointerSurface::Button button) {
  PENTOWINDOW* control = button == PointerSurface::kLeft ? boards_.underHand() : carrier();
  if (control) return control->PressAtHand(button);
  const QPointF at = window_.mapFromGlobal(Pointer::position());
  auto* beside = qobject_cast<QAbstractButton*>(childAt(window_, at));
  if (beside && button == PointerSurface::kLeft) beside->click();
}

void Touch::cancel() {
  tmrLongPress_->stop();
  others_.clear();
  mostOthers_ = 0;
  othersTap_ = true;
  const bool led = first_ && first_->leads;
  first_.reset();
  if (led) leave();
}

/// The hand goes to the middle of the piece, which so stays where it is seen.
void Touch::leave() {
  QPointF hand = Pointer::position();
  if (const PENTOWINDOW* control = lifts_ ? carrier() : nullptr) hand = control->FloatingMiddle();
  lifts_ = false;
  Pointer::stay(hand);
  if (!Form::Unloaded(&window_)) Pointer::moveFollows(window_);
}
