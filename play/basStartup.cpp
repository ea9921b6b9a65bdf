#include "play/basStartup.h"

#include <filesystem>

#include "model/Random.h"
#include "model/basTiles.h"
#include "platform/Dialogs.h"
#include "platform/Program.h"
#include "play/Attempt.h"
#include "services/basKelvoMusic.h"

namespace fs = std::filesystem;

namespace basStartup {

bool fSplashDone = false;

namespace {

#ifdef QUINZOLITH_DEVELOPER
constexpr bool kDeveloperVersion = true;
#else
constexpr bool kDeveloperVersion = false;
#endif

void makeUserFolder() {
  Program::UserPath = Program::installationFolder() / "User";
  if (!fs::exists(Program::UserPath)) fs::create_directory(Program::UserPath);
}

void warnOfDeveloperVersion() {
  if (basTiles::fDeveloperVersion)
    Dialogs::message("WARNING:  This is the developer's version.  Do not distribute.",
                     Dialogs::Icon::Exclamation);
}

}  // namespace

void Main(const std::function<void()>& ShowSplash) {
  RandomNumbers::start(Program::Timer());
  basTiles::fDeveloperVersion = kDeveloperVersion;
  Program::HelpFile = Program::installationFolder() / "Quinzolith.chm";
  attempt(makeUserFolder);
  basTiles::fRandomRotation = true;
  basTiles::fRandomFlip = true;
  attempt(warnOfDeveloperVersion);
  attempt(basKelvoMusic::LoadSoundLists);
  attempt(ShowSplash);
}

}  // namespace basStartup
