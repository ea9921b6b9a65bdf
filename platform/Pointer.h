#pragma once

#include <QPointF>
#include <QWidget>

/// The mouse pointer. Asking a display server for its position is a round trip, so the server is
/// asked only when the position can have changed without an event of ours telling so.
///
/// Units: logical pixels of the desktop, fractional where the server reports fractions.
namespace Pointer {

/// Where the pointer is now.
QPointF position();

/// Puts the pointer somewhere: best effort, since some display servers refuse.
void place(const QPointF& position);

/// Seconds since the pointer last moved over a window of the program.
double secondsSinceMove();

/// Starts listening to the program's mouse events; call once the application object exists. Without
/// it every question goes to the server.
void listen();

}  // namespace Pointer
