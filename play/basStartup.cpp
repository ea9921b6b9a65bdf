#include "play/basStartup.h"

#include "folders/Installation.h"
#include "model/Random.h"
#include "model/basTiles.h"
#include "platform/Dialogs.h"
#include "platform/Program.h"
#include "play/Attempt.h"
#include "services/basKelvoMusic.h"

namespace basStartup {

bool fSplashDone = false;

namespace {

#ifdef QUINZOLITH_DEVELOPER
constexpr bool kDeveloperVersion = true;
#else
constexpr bool kDeveloperVersion = false;
#endif

void findFolders() {
  const auto found = Installation::find(Program::programFolder());
  Program::setInstallationFolder(found.folder);
  Program::UserPath = found.user;
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
  attempt(findFolders);
  Program::HelpFile = Program::installationFolder() / "Quinzolith.chm";
  basTiles::fRandomRotation = true;
  basTiles::fRandomFlip = true;
  attempt(warnOfDeveloperVersion);
  attempt(basKelvoMusic::LoadSoundLists);
  attempt(ShowSplash);
}

}  // namespace basStartup
