#pragma once

#include <QHash>
#include <QObject>
#include <QPointF>
#include <QTimer>
#include <QTouchEvent>
#include <QWidget>
#include <optional>

#include "platform/PointerSurface.h"

class HandKeys;
class PENTOWINDOW;

/// Fingers on the boards of a window. They do what the mouse does, by the same handlers.
///
///   a finger goes down on a piece  takes it up
///   it moves, and is lifted        the left press, where it is lifted; it may press a button there
///   a tap, a piece in the air      the left press, where it is tapped; on the piece, where that is
///   a long press on that piece     the right press: turns
///   while a finger is down: another one taps, two others tap   the right press, the middle one
///
/// While a finger leads the hand, the pointer is where the finger is, and the piece hangs above it.
/// When it is lifted, the hand stays in the middle of the piece until the mouse or keys move it.
class Touch : public QObject {
 public:
  Touch(QWidget& window, const HandKeys& boards);
  ~Touch() override;

  /// Hears of the window's touches, wherever they are, from now on; for when it has come to be on
  /// the screen, or anew. Widgets are told of some fingers only while others are on others.
  void listen();

  /// A finger is down on a board.
  bool down() const { return first_.has_value(); }
  /// The carried piece hangs above the hand, which a finger leads.
  bool lifts() const { return lifts_; }
  /// Forgets the fingers that are down; the piece stays in the air.
  void cancel();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct First {
    int id;
    QPointF start;
    bool presses;  ///< as it is lifted
    bool leads;    ///< it leads the hand
  };

  bool concerns(const QTouchEvent& event) const;
  void take(const QEventPoint& point);
  void begin(const QEventPoint& point);
  void beginFirst(const QEventPoint& point);
  void move(const QEventPoint& point);
  void end(const QEventPoint& point);
  void endFirst(const QPointF& global);
  void endOther(int id, const QPointF& global);
  void lead(const QPointF& global);
  void leave();
  void turnByLongPress();
  void press(PointerSurface::Button button);
  PENTOWINDOW* carrier() const;

  QWidget& window_;
  const HandKeys& boards_;
  std::optional<First> first_;
  QHash<int, QPointF> others_;  ///< where the other fingers went down
  qsizetype mostOthers_ = 0;    ///< at once, since none was down
  bool othersTap_ = true;
  bool lifts_ = false;
  QTimer* tmrLongPress_;
};
