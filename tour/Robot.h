#pragma once

#include <QElapsedTimer>
#include <QPointF>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "tour/EventBarrier.h"
#include "tour/ManagerBarrier.h"

/// A player's hand on a real X server: moves the pointer and presses buttons and keys through the
/// server, on a thread of its own, while the program's event loop runs as ever.
///
/// Units:  device pixels of the screen.
/// Errors: Script::Error where there is no X server.
class Robot {
 public:
  Robot();
  ~Robot();
  Robot(Robot&&) = delete;

  void moveTo(const QPointF& point);  ///< in steps, as a hand would
  /// To a place that is asked for on the user-interface thread, and again once the pointer is
  /// there.
  void moveTo(const std::function<QPointF()>& place);
  void jumpTo(const QPoint& point);  ///< at once, as a pen does
  void press(int button);            ///< X numbers: 1 left, 2 middle, 3 right
  void release(int button);
  void click(int button = 1);
  void clickAlone();  ///< waits first, if the left click would be the second of a double one
  void doubleClick();
  void key(const char* name);          ///< an X key name: "Return", "Escape", "a", "F2"
  void type(const std::string& text);  ///< letters, digits, blanks and the like

  /// Waits until the condition, asked on the user-interface thread, holds, the window is on the
  /// screen, and its manager has done with moving and sizing it.
  void waitSettled(const std::string& what, const QWidget& window,
                   const std::function<bool()>& condition);

  /// Writes a picture of a window without its frame, or of the whole screen. Device pixels.
  static void photograph(const QWidget* window, const QString& file);
  static void photograph(const QString& file);

 private:
  void flush();  ///< returns when the program has handled what was done
  QPoint pointer() const;
  bool knowsPlace(const QWidget& window) const;

  struct Connection;
  std::unique_ptr<Connection> connection_;
  std::unique_ptr<EventBarrier> barrier_;
  std::unique_ptr<ManagerBarrier> managerBarrier_;
  QElapsedTimer sincePress_;
  QPoint pressedAt_;
};
