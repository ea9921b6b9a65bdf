// The help viewer: quinzolith-help FILE [TOPIC].
#include <QApplication>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/DisplayNeeded.h"
#include "platform/EndSignals.h"
#include "platform/Program.h"
#include "viewer/BringToFront.h"
#include "viewer/HelpWindow.h"
#include "viewer/SingleViewer.h"

namespace {

constexpr int kWrongUse = 2;

constexpr const char* kUsage =
    "Usage: quinzolith-help FILE [TOPIC]\n"
    "Shows a compiled help file (.chm): its start page, or the page of a topic number.\n"
    "A viewer that already shows the file on this display takes the topic over.\n"
    "\n"
    "  --help       this text\n"
    "  --version    the version number\n";

/// What the command line asks for; -1 as topic: wrong use.
struct Request {
  std::string_view file;
  int topic = 0;
};

int parsed(std::string_view number) {
  int value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  return error == std::errc{} && end == number.data() + number.size() && value >= 0 ? value : -1;
}

Request requestOf(const std::vector<std::string_view>& arguments) {
  if (arguments.empty() || arguments.size() > 2) return {{}, -1};
  return {arguments[0], arguments.size() == 2 ? parsed(arguments[1]) : 0};
}

int run(int argc, char** argv, const Request& request) {
  std::optional<DisplayNeeded> display("quinzolith-help");
  QApplication application(argc, argv);
  display.reset();
  const EndSignals onSignal;
  QApplication::setApplicationName("quinzolith-help");
  const QString file =
      QString::fromLocal8Bit(request.file.data(), static_cast<qsizetype>(request.file.size()));
  SingleViewer viewer(file);
  if (viewer.handOver(request.topic)) return 0;
  HelpWindow window(file);
  QObject::connect(&viewer, &SingleViewer::topicWanted, &window, [&window](int topic) {
    window.showTopic(topic);
    bringToFront(window);
  });
  window.showTopic(request.topic);
  window.show();
  viewer.listen();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string_view> arguments(argv + 1, argv + argc);
  if (!arguments.empty() && arguments[0] == "--help") return std::fputs(kUsage, stdout) < 0;
  if (!arguments.empty() && arguments[0] == "--version")
    return std::printf("quinzolith-help %s\n", Program::versionText().c_str()) < 0;
  if (!arguments.empty() && arguments[0] == "--") arguments.erase(arguments.begin());
  const Request request = requestOf(arguments);
  if (request.topic >= 0) return run(argc, argv, request);
  std::fputs(kUsage, stderr);
  return kWrongUse;
}
