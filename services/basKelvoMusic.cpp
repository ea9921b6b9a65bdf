#include "services/basKelvoMusic.h"

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

namespace {

TunePlayer* correctPlayer = nullptr;
TunePlayer* wrongPlayer = nullptr;
TunePlayer* songPlayer = nullptr;

bool fSoundClosing = false;
bool fSoundOn = false;
bool fSoundReady = false;
std::size_t LastCorrect = 0;

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
    if (i != LastCorrect) return i;
  }
  return (LastCorrect + 1) % count;  // a generator that is stuck must not stop the game
}

void command(TunePlayer* player, const char* text) {
  if (player) player->Command(text);
}

bool mayPrepare() {
  return fSoundOn && !fSoundClosing;
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
  LastCorrect = drawCorrect();
  openTune(correctPlayer, CorrectFiles[LastCorrect]);
  processPendingEvents();
  fCorrectDone = false;
}

void PrepareWrong() {
  if (!mayPrepare()) return;
  openTune(wrongPlayer, WrongFiles[draw(countOf(WrongFiles))]);
  fWrongDone = false;
}

void PrepareSong() {
  if (!mayPrepare()) return;
  openTune(songPlayer, SongFiles[draw(countOf(SongFiles))]);
  fSongDone = false;
}

void closeUnlessStopped(TunePlayer* player) {
  if (player->Mode() != TunePlayer::kStopped) player->Command("Close");
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
  fSoundReady = true;
  fSoundClosing = false;
  correctPlayer = &Correct;
  wrongPlayer = &Wrong;
  songPlayer = &Song;
  PrepareCorrect();
  PrepareWrong();
  PrepareSong();
  const std::string stored = Settings::get(Settings::application(), kSection, kKey, "True");
  SetSound(booleanFromText(stored).value_or(true));
}

bool SoundOn() {
  return fSoundOn;
}

void SetSound(bool On) {
  fSoundOn = On;
  if (!On && fSoundReady) {
    for (TunePlayer* player : {correctPlayer, wrongPlayer, songPlayer}) {
      command(player, "Stop");
      command(player, "Back");
    }
  }
  Settings::save(Settings::application(), kSection, kKey, On ? "True" : "False");
}

void PlayWrong() {
  if (!fSoundOn || !fSoundReady) return;
  if (wrongPlayer->Mode() == TunePlayer::kNotOpen || fWrongDone) PrepareWrong();
  closeUnlessStopped(songPlayer);
  closeUnlessStopped(correctPlayer);
  if (wrongPlayer->Mode() != TunePlayer::kStopped) return;
  wrongPlayer->Command("Play");
  PrepareCorrect();
}

void PlaySong() {
  if (!fSoundOn || !fSoundReady) return;
  if (songPlayer->Mode() == TunePlayer::kNotOpen || fSongDone) PrepareSong();
  closeUnlessStopped(correctPlayer);
  closeUnlessStopped(wrongPlayer);
  if (songPlayer->Mode() != TunePlayer::kStopped) return;
  songPlayer->Command("Play");
  PrepareCorrect();
  PrepareWrong();
}

void CloseSound() {
  fSoundClosing = true;
  fSoundReady = false;
  for (TunePlayer** player : {&correctPlayer, &wrongPlayer, &songPlayer}) {
    command(*player, "Close");
    *player = nullptr;
  }
  processPendingEvents();
}

void Reset() {
  for (auto* files : {&CorrectFiles, &WrongFiles, &SongFiles}) files->assign(1, {});
  fCorrectDone = fWrongDone = fSongDone = false;
  correctPlayer = wrongPlayer = songPlayer = nullptr;
  fSoundClosing = fSoundOn = fSoundReady = false;
  LastCorrect = 0;
}

}  // namespace basKelvoMusic
