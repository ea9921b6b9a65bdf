#pragma once

#include <QPointF>
#include <QWidget>
#include <functional>

/// The mouse pointer. Asking a display server for its position is a round trip, so the server is
/// asked only when the position can have changed without an event of ours telling so.
///
/// Units: logical pixels of the desktop, fractional where the server reports fractions.
namespace Pointer {

/// Where the pointer is now.
QPointF position();

/// Whether events have told where it is, so that it cannot go elsewhere without another event.
bool known();

/// Calls `moved` when an event tells of a move, before any window hears of it, and when the pointer
/// may from now on go elsewhere without an event. It must not make or destroy watches.
class Watch {
 public:
  explicit Watch(std::function<void()> moved);
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  const std::function<void()> moved;
};

/// Puts the pointer somewhere: best effort, since some display servers refuse.
void place(const QPointF& position);

/// Seconds since the pointer last moved over a window of the program.
double secondsSinceMove();

/// Starts listening to the program's mouse events; call once the application object exists. Without
/// it every question goes to the server.
void listen();

}  // namespace Pointer
