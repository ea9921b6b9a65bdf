#include "services/basKelvoMusic.h"

#include <initializer_list>
#include <limits>
#include <string>

#include "model/Random.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "platform/Settings.h"
#include "services/BooleanText.h"
#include "services/basKelvoWinAPI.h"
#include "sound/TunePlayer.h"

namespace fs = std::filesystem;

namespace basKelvoMusic {

std::vector<fs::path> CorrectFiles(1), WrongFiles(1), SongFiles(1);
bool fCorrectDone = false, fWrongDone = false, fSongDone = false;

Seam<State> state(State{});

namespace {

constexpr const char* kSection = "Sound";
constexpr const char* kKey = "Status";

std::size_t countOf(const std::vector<fs::path>& files) {
  return files.size() - 1;
}

bool isHidden(const fs::path& file) {
  return file.filename().native().front() == '.';
}

/// Lists the ordinary files of a folder; false if an error ended the listing.
bool listFolder(const fs::path& folder, std::vector<fs::path>& files) {
  files.assign(1, {});
  std::vector<fs::path> found;
  std::error_code error, none;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->is_regular_file(none) && !isHidden(entry->path())) found.push_back(entry->path());
  }
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
    return true;
  if (error || found.size() > std::numeric_limits<std::int16_t>::max()) return false;
  found.emplace_back();
  files = std::move(found);
  return true;
}

std::size_t draw(std::size_t count) {
  return static_cast<std::size_t>(RandomNumbers::next() * static_cast<double>(count));
}

/// The next correct tune, never the last one again. With fewer than two there is no other: the only
/// one then, or the empty slot.
std::size_t drawCorrect() {
  const std::size_t count = countOf(CorrectFiles);
  if (count < 2) return 0;
  for (int tries = 0; tries < 1000; ++tries) {
    const std::size_t i = draw(count);
    if (i != state->LastCorrect) return i;
  }
  return (state->LastCorrect + 1) % count;  // a generator that is stuck must not stop the game
}

void command(TunePlayer* player, const char* text) {
  if (player) player->Command(text);
}

bool mayPrepare() {
  return state->fSoundOn && !state->fSoundClosing;
}

void openTune(TunePlayer* player, const fs::path& file) {
  if (!player) return;
  player->Command("Close");
  player->DeviceType = "Sequencer";
  player->FileName = file;
  player->Command("Open");
}

void PrepareCorrect() {
  if (!mayPrepare()) return;
  state->LastCorrect = drawCorrect();
  openTune(state->Correct, CorrectFiles[state->LastCorrect]);
  processPendingEvents();
  fCorrectDone = false;
}

void PrepareWrong() {
  if (!mayPrepare()) return;
  openTune(state->Wrong, WrongFiles[draw(countOf(WrongFiles))]);
  fWrongDone = false;
}

void PrepareSong() {
  if (!mayPrepare()) return;
  openTune(state->Song, SongFiles[draw(countOf(SongFiles))]);
  fSongDone = false;
}

void closeUnlessStopped(TunePlayer* player) {
  if (player->Mode() != TunePlayer::kStopped) player->Command("Close");
}

/// Plays a player's tune, after another has been prepared if that one is over. False where there is
/// no sound, or the tune plays already.
bool play(TunePlayer* player, bool done, void (*prepare)(),
          std::initializer_list<TunePlayer*> others) {
  if (!state->fSoundOn || !state->fSoundReady) return false;
  if (player->Mode() == TunePlayer::kNotOpen || done) prepare();
  for (TunePlayer* other : others) closeUnlessStopped(other);
  if (player->Mode() != TunePlayer::kStopped) return false;
  player->Command("Play");
  return true;
}

}  // namespace

void LoadSoundLists() {
  const fs::path tunes =
      basKelvoWinAPI::GetProgramFilesDir() / Program::kMaker / "Common Files" / "MIDI";
  if (!listFolder(tunes / "Correct", CorrectFiles)) return;
  if (!listFolder(tunes / "Wrong", WrongFiles)) return;
  listFolder(tunes / "Song", SongFiles);
}

void InitSound(TunePlayer& Correct, TunePlayer& Wrong, TunePlayer& Song) {
  state->fSoundReady = true;
  state->fSoundClosing = false;
  state->Correct = &Correct;
  state->Wrong = &Wrong;
  state->Song = &Song;
  PrepareCorrect();
  PrepareWrong();
  PrepareSong();
  const std::string stored = Settings::get(Settings::application(), kSection, kKey, "True");
  SetSound(booleanFromText(stored).value_or(true));
}

bool SoundOn() {
  return state->fSoundOn;
}

void SetSound(bool On) {
  state->fSoundOn = On;
  if (!On && state->fSoundReady) {
    for (TunePlayer* player : {state->Correct, state->Wrong, state->Song}) {
      command(player, "Stop");
      command(player, "Back");
    }
  }
  Settings::save(Settings::application(), kSection, kKey, On ? "True" : "False");
}

void PlayWrong() {
  if (play(state->Wrong, fWrongDone, PrepareWrong, {state->Song, state->Correct})) PrepareCorrect();
}

void PlaySong() {
  if (!play(state->Song, fSongDone, PrepareSong, {state->Correct, state->Wrong})) return;
  PrepareCorrect();
  PrepareWrong();
}

void CloseSound() {
  state->fSoundClosing = true;
  state->fSoundReady = false;
  for (TunePlayer** player : {&state->Correct, &state->Wrong, &state->Song}) {
    command(*player, "Close");
    *player = nullptr;
  }
  processPendingEvents();
}

}  // namespace basKelvoMusic
