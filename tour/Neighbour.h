#pragma once

#include <QPointF>
#include <QSize>

/// A window of another program on the same X server: something for the player to turn to. It goes
/// when the object does; the window manager then activates the window before it.
///
/// Units:  device pixels of the screen.
/// Errors: Script::Error where there is no X server.
class Neighbour {
 public:
  Neighbour();
  ~Neighbour();
  Neighbour(Neighbour&&) = delete;

  /// Waits until the window stands on the screen, and returns a point inside it.
  QPointF middle();

 private:
  struct Connection;
  Connection* connection_;
};
