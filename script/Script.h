#pragma once

#include <QApplication>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

/// A script that works the program's windows from a thread of its own, while their event loop runs
/// as ever: it can wait for a dialog that one of its own clicks has opened.
namespace Script {

/// What a script waited for did not come.
class Error : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Runs a function on the user-interface thread, waits for it and returns its result. It must not
/// open a dialog: nobody could answer.
template <class Function>
auto onScreen(Function function) {
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

/// Has the user-interface thread run a function, which may open a dialog, and goes on.
void post(const std::function<void()>& function);

/// Waits until the condition, asked on the user-interface thread, holds.
void waitFor(const std::string& what, const std::function<bool()>& condition);

/// Runs the event loop with a script beside it, until the script has ended. Returns what went
/// wrong, or an empty text.
std::string run(const std::function<void()>& script);

}  // namespace Script
