#pragma once

#include <QApplication>
#include <QPointF>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <utility>

/// A player's hand on a real X server: moves the pointer and presses buttons and keys through the
/// server, on a thread of its own, while the program's event loop runs as ever.
///
/// Units:  device pixels of the screen.
/// Errors: RobotError when what it waits for does not come.
class RobotError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Robot {
 public:
  Robot();
  ~Robot();
  Robot(const Robot&) = delete;
  Robot& operator=(const Robot&) = delete;

  void moveTo(const QPointF& point);  ///< in steps, as a hand would
  void press(int button);             ///< X numbers: 1 left, 2 middle, 3 right
  void release(int button);
  void click(int button = 1);
  void doubleClick();
  void key(const char* name);          ///< an X key name: "Return", "Escape", "a", "F2"
  void type(const std::string& text);  ///< letters, digits, blanks and the like

  /// Runs a function on the user-interface thread and returns its result.
  template <class Function>
  static auto onScreen(Function function) {
    using Result = std::invoke_result_t<Function>;
    if constexpr (std::is_void_v<Result>) {
      QMetaObject::invokeMethod(qApp, function, Qt::BlockingQueuedConnection);
    } else {
      std::optional<Result> result;
      QMetaObject::invokeMethod(
          qApp, [&] { result.emplace(function()); }, Qt::BlockingQueuedConnection);
      return std::move(*result);
    }
  }

  /// Waits until the condition, asked on the user-interface thread, holds.
  void waitFor(const std::string& what, const std::function<bool()>& condition);

  /// Writes a picture of the whole screen.
  static void photograph(const QString& file);

 private:
  void flush();

  struct Connection;
  std::unique_ptr<Connection> connection_;
  QPointF at_;
};

/// Runs a script beside the program's event loop, which ends with the script or with the program.
/// Returns what went wrong, or an empty text.
std::string runScript(const std::function<void(Robot&)>& script);
