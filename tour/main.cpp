// Plays with the real pointer on an X server and writes pictures of what the program shows.
// Usage: quinzolith-tour rocket|windows|soak FOLDER_FOR_PICTURES [INSTALLATION_FOLDER]
//   rocket   the Rocket puzzle from the splash window to the solved dialog, as whole screens
//   windows  each window once, without its frame
//   soak     all puzzles with many an interruption; a picture only of what went wrong
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <iostream>

#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "platform/Settings.h"
#include "script/Script.h"
#include "sound/SoundDevice.h"
#include "tour/DisplayErrors.h"
#include "tour/Hands.h"
#include "tour/Soak.h"

namespace {

class Tour {
 public:
  Tour(Robot& robot, Wiring& program, const QDir& pictures)
      : robot_(robot), program_(program), hands_(robot, program), pictures_(pictures) {}

  void rocket() {
    hands_.waitOpen(program_.splash);
    screen("1-splash");
    toPlayWindow([this] { screen("2-chooser"); });
    screen("3-start");
    solveRocket([this] { screen("4-in-the-air"); });
    screen("5-solved");
    leave();
  }

  void windows() {
    hands_.waitOpen(program_.splash);
    window(program_.splash, "splash");
    toPlayWindow([this] { window(program_.open, "chooser"); });
    solveRocket([this] { window(program_.main, "play"); });
    window(program_.finished, "solved");
    hands_.clickOn(program_.finished, "imgEdit");
    hands_.waitOpen(program_.edit);
    Script::onScreen([this] {
      basTiles::fDeveloperVersion = true;  // the standard puzzles are locked
      basTiles::LoadPuzzle(Program::installationFolder() / "puzzles" / "plane.qzl", true);
      basTiles::fDeveloperVersion = false;
    });
    window(program_.edit, "editor");
    hands_.choose(program_.edit, "mnuHelp", "mnuHelpAbout");
    hands_.waitOpen(program_.splash);
    window(program_.splash, "about");
    robot_.key("Escape");
    hands_.waitClosed(program_.splash);
    hands_.waitOpen(program_.edit);
    hands_.choose(program_.edit, "mnuFile", "mnuFileClose");
    hands_.waitClosed(program_.edit);
  }

 private:
  QString file(const char* name) const { return pictures_.filePath(QString(name) + ".png"); }
  void screen(const char* name) { Robot::photograph(file(name)); }
  void window(Form& form, const char* name) { Robot::photograph(form.Window(), file(name)); }

  void toPlayWindow(const std::function<void()>& atTheChooser) {
    hands_.clickOn(program_.splash, "imgPlay");
    hands_.waitOpen(program_.open);
    atTheChooser();
    robot_.key("Escape");
    hands_.waitClosed(program_.open);
    hands_.waitOpen(program_.main);
  }

  /// `midway` runs once while a piece is in the air between tray and board.
  void solveRocket(const std::function<void()>& midway) {
    const auto pieces = Hands::solution(Program::installationFolder() / "puzzles" / "rocket.qzl");
    hands_.solve(pieces, Hands::Carrying::ClickByClick, [&](std::size_t laid) {
      if (laid != pieces.size() / 2) return;
      robot_.moveTo([this] { return Hands::cell(*program_.main.Grid, 2, 3); });
      Script::waitFor("the piece to come over the board", [this] {
        const PentoRef piece = program_.main.Grid->FloatingPento();
        return piece && piece->X() > 0;
      });
      midway();
    });
    hands_.waitOpen(program_.finished);
  }

  void leave() {
    hands_.clickOn(program_.finished, "imgQuit");
    hands_.waitClosed(program_.main);
  }

  Robot& robot_;
  Wiring& program_;
  Hands hands_;
  const QDir& pictures_;
};

std::string tour(const std::string& kind, const QDir& pictures) {
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
