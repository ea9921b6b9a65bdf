#include "tour/Tour.h"

#include "model/basTiles.h"
#include "platform/Program.h"
#include "script/Script.h"
#include "viewer/HelpWindow.h"

namespace {

QString file(const QDir& folder, const char* name) {
  return folder.filePath(QString(name) + ".png");
}

}  // namespace

void Tour::screen(const char* name) {
  Robot::photograph(file(pictures_, name));
}

void Tour::window(Form& form, const char* name) {
  Robot::photograph(form.Window(), file(pictures_, name));
}

void Tour::rocket() {
  hands_.waitOpen(program_.splash);
  screen("1-splash");
  toPlayWindow([this] { screen("2-chooser"); });
  screen("3-start");
  solveRocket([this] { screen("4-in-the-air"); });
  screen("5-solved");
  hands_.clickOn(program_.finished, "imgQuit");
  hands_.waitClosed(program_.main);
}

void Tour::windows() {
  hands_.waitOpen(program_.splash);
  window(program_.splash, "splash");
  toPlayWindow([this] { chooser(); });
  window(program_.main, "play-start");
  solveRocket([this] { window(program_.main, "play"); });
  window(program_.finished, "solved");
  window(program_.main, "play-solved");
  hands_.clickOn(program_.finished, "imgEdit");
  hands_.waitOpen(program_.edit);
  editor();
  help();
}

/// The first tab last, so that it is the one that closes, as a player leaves it.
void Tour::chooser() {
  constexpr const char* names[] = {"chooser", "chooser-easy", "chooser-intermediate",
                                   "chooser-expert", "chooser-other"};
  for (int tab = static_cast<int>(std::size(names)) - 1; tab >= 0; --tab) {
    hands_.turnToTab(tab);
    window(program_.open, names[tab]);
  }
}

void Tour::help() {
  auto* viewer = Script::onScreen([] {
    auto* shown = new HelpWindow(QString::fromStdString(Program::HelpFile.string()));
    shown->showTopic(0);
    shown->show();
    return shown;
  });
  robot_.waitSettled("the help", *viewer, [viewer] { return viewer->isActiveWindow(); });
  Robot::photograph(viewer, file(pictures_, "help"));
  Script::onScreen([viewer] { delete viewer; });
}

void Tour::editor() {
  window(program_.edit, "editor-empty");
  Script::onScreen([] {
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

void Tour::toPlayWindow(const std::function<void()>& atTheChooser) {
  hands_.clickOn(program_.splash, "imgPlay");
  hands_.waitOpen(program_.open);
  atTheChooser();
  robot_.key("Escape");
  hands_.waitClosed(program_.open);
  hands_.waitOpen(program_.main);
}

/// `midway` runs once while a piece is in the air between tray and board.
void Tour::solveRocket(const std::function<void()>& midway) {
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
