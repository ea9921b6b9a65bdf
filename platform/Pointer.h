#pragma once

#include <QPointF>
#include <QWidget>
#include <functional>

#include "seams/Seam.h"

/// The mouse pointer: where it is, and how it is placed. Asking a display server for its position
/// is a round trip, so the server is asked only when the position can have changed without an event
/// of ours telling so.
///
/// Units: logical pixels of the desktop, fractional where the server reports fractions.
namespace Pointer {

/// What the program asks of the display server, and when. A test puts a pointer of its own in
/// place.
struct Server {
  Server();
  std::function<QPointF()> position;
  std::function<void(const QPointF&)> place;  ///< may do nothing, and need not tell of a move
  std::function<qint64()> nanoseconds;        ///< a clock that never goes back
};
extern Seam<Server> server;

/// Where the pointer is now.
QPointF position();

/// Puts the pointer over a point, best effort, and lets a move of it follow in that window: at the
/// place where the pointer then is, whether or not the server placed it or tells of a move.
void place(const QPointF& position, QWidget& window);

/// As place; but where the server does not put the pointer there, the program takes it to be there
/// until it hears of a motion.
void insist(const QPointF& position, QWidget& window);

/// A finger on the screen leads: until it has left, the pointer is where the finger is, whatever
/// the mouse does, and is not placed.
void follow(const QPointF& finger);
/// The finger has left: the pointer is taken to be there until the program hears of a motion.
void stay(const QPointF& position);

/// Lets a move follow as if the pointer had just come to where it is. The move is posted, never
/// sent from inside; a move that the server tells of meanwhile takes its place, and so does a later
/// one of ours. It goes to the PointerSurface under the pointer, if there is one and no dialog
/// blocks it.
void moveFollows(QWidget& window);

/// Whether events tell all: until the next news of it, the pointer is where it is now.
bool known();

/// Calls whenever the pointer may be elsewhere, or may from now on move without an event that tells
/// of it. One listener; the call comes before the event is dealt out.
void onNews(std::function<void()> news);

/// Seconds since the pointer last moved over a window of the program.
double secondsSinceMove();

/// Forgets what events told: the next question goes to the server.
void forget();

/// Starts listening to the program's mouse events; call once the application object exists. Without
/// it every question goes to the server.
void listen();

}  // namespace Pointer
