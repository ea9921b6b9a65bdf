// quinzolith-open FILE: what a desktop calls when a puzzle file is double-clicked.
#include <QApplication>
#include <QProcess>

#include "folders/Installation.h"
#include "opener/OwnPuzzles.h"
#include "opener/RunningGame.h"
#include "platform/Dialogs.h"
#include "platform/Program.h"

namespace fs = std::filesystem;

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

bool mayReplace(const fs::path& existing) {
  return Dialogs::askYesNo(existing.filename().string() +
                           " already exists.\nDo you want to replace it?") == Dialogs::Answer::Yes;
}

void startGame() {
  const fs::path game = Program::programFolder() / "quinzolith";
  if (!QProcess::startDetached(QString::fromStdString(game.string()), {}))
    Dialogs::message("The game could not be started.", Dialogs::Icon::Exclamation);
}

int open(const fs::path& file) {
  const auto found = Installation::find(Program::programFolder());
  const fs::path name = OwnPuzzles::add(file, found.user, mayReplace);
  if (name.empty()) return 0;
  Dialogs::message("The puzzle \"" + name.stem().string() + "\" is under \"Other\".",
                   Dialogs::Icon::None);
  if (!RunningGame::raise()) startGame();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: quinzolith-open FILE\n", stderr);
    return kWrongUse;
  }
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    return open(argv[1]);
  } catch (const std::exception& error) {
    Dialogs::message(error.what(), Dialogs::Icon::Exclamation);
    return kFailed;
  }
}
