// Plays with the real pointer on an X server and writes pictures of what the program shows.
// Usage: quinzolith-tour rocket|windows|soak FOLDER_FOR_PICTURES [INSTALLATION_FOLDER]
//   rocket   the Rocket puzzle from the splash window to the solved dialog, as whole screens
//   windows  each window in the states that a player meets, without its frame
//   soak     all puzzles with many an interruption; a picture only of what went wrong
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <iostream>
#include <random>

#include "model/Random.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "platform/Settings.h"
#include "script/Script.h"
#include "sound/SoundDevice.h"
#include "tour/DisplayErrors.h"
#include "tour/Hands.h"
#include "tour/Soak.h"
#include "tour/Tour.h"

namespace {

/// Pieces lie in the tray alike each time.
std::string tour(const std::string& kind, const QDir& pictures) {
  const Replacement random(RandomNumbers::next, [engine = std::minstd_rand(1)]() mutable {
    return std::generate_canonical<double, 32>(engine);
  });
  Wiring program;
  program.start();
  return Script::run([&] {
    Robot robot;
    Tour tour(robot, program, pictures);
    if (kind == "rocket")
      tour.rocket();
    else
      tour.windows();
  });
}

/// The sound goes to a file, so that it is made even where there is no device.
std::string soak(const QDir& pictures) {
  const QTemporaryDir folder;
  const std::string sound = folder.filePath("sound.raw").toStdString();
  const Replacement device(SoundDevice::file, sound);
  const DisplayErrors errors;
  Wiring program;
  program.start();
  return Script::run([&] {
    Robot robot;
    try {
      Soak(robot, program, errors, sound).run();
    } catch (const Script::Error&) {
      Robot::photograph(pictures.filePath("trouble.png"));
      throw;
    }
  });
}

int usage() {
  std::cerr
      << "Usage: quinzolith-tour rocket|windows|soak FOLDER_FOR_PICTURES [INSTALLATION_FOLDER]\n";
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string kind = argc > 2 ? argv[1] : "";
  if (kind != "rocket" && kind != "windows" && kind != "soak") return usage();
  const QDir pictures(QDir(argv[2]).absolutePath());
  QDir().mkpath(pictures.path());
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const std::filesystem::path folder = argc > 3 ? argv[3] : Program::programFolder();
  const Replacement installed(Program::programFolder, [folder] { return folder; });
  const QTemporaryDir settings;  // the player's own stay as they are
  const Replacement file(Settings::place,
                         Settings::Place{settings.filePath("settings.ini").toStdString()});

  const std::string trouble = kind == "soak" ? soak(pictures) : tour(kind, pictures);
  finishFirstLevelWork();
  if (trouble.empty()) return 0;
  std::cerr << trouble << '\n';
  return 1;
}
