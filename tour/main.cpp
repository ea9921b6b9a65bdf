// Plays the Rocket puzzle with the real pointer, from the splash window to the solved dialog, and
// writes pictures of what it showed.
// Usage: quinzolith-tour FOLDER_FOR_PICTURES [FOLDER_OF_THE_INSTALLED_TREE]
#include <QApplication>
#include <QDir>
#include <iostream>

#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "tour/Hands.h"
#include "tour/Script.h"

namespace {

void playRocket(Robot& robot, Wiring& program, const QDir& pictures) {
  Hands hands(robot, program);
  hands.waitOpen(program.splash);
  robot.photograph(pictures.filePath("1-splash.png"));
  hands.clickOn(program.splash, "imgPlay");
  hands.waitOpen(program.open);
  robot.photograph(pictures.filePath("2-chooser.png"));
  robot.key("Escape");
  hands.waitClosed(program.open);
  Script::waitFor("the play window", [&] { return program.main.Window()->isActiveWindow(); });
  robot.photograph(pictures.filePath("3-start.png"));

  const auto pieces = Hands::solution(Program::installationFolder() / "puzzles" / "rocket.qzl");
  hands.solve(pieces, Hands::Carrying::ClickByClick, [&](std::size_t laid) {
    if (laid != pieces.size() / 2) return;
    const auto tray = Script::onScreen([&] {
      return Hands::cell(*program.main.PentoPanel, 8,
                         program.main.PentoPanel->Grid()->Height() / 3);
    });
    robot.moveTo(tray + QPointF(40, 0));
    robot.photograph(pictures.filePath("4-in-the-air.png"));
  });
  hands.waitOpen(program.finished);
  robot.photograph(pictures.filePath("5-solved.png"));
  hands.clickOn(program.finished, "imgQuit");
  hands.waitClosed(program.main);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "Usage: quinzolith-tour FOLDER_FOR_PICTURES [FOLDER_OF_THE_INSTALLED_TREE]\n";
    return 2;
  }
  const QDir pictures(QDir(argv[1]).absolutePath());
  QDir().mkpath(pictures.path());
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc > 2) Program::setInstallationFolder(argv[2]);

  Wiring program;
  program.start();
  const std::string trouble = Script::run([&] {
    Robot robot;
    playRocket(robot, program, pictures);
  });
  finishFirstLevelWork();
  if (trouble.empty()) return 0;
  std::cerr << trouble << '\n';
  return 1;
}
