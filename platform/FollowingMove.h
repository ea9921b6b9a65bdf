#pragma once

#include <QWidget>

/// The move of the pointer that follows when the program has placed it, or shows a window under it
/// again. An X server tells of a placing only if the pointer was elsewhere, other servers never do.
/// There is at most one.
namespace FollowingMove {

/// Lets it follow in a window once the events that wait now have been handled.
void post(QWidget& window);

/// A move that the server tells of has taken its place.
void cancel();

}  // namespace FollowingMove
