#pragma once

#include <filesystem>
#include <vector>

#include "seams/Seam.h"

class TunePlayer;

/// The tunes: a wrong tune for a piece dropped where it does not fit, a song for a solved puzzle,
/// and the correct tunes, which are opened and held ready but which nothing plays yet. The module
/// lists the tunes, picks one at random whenever a player needs one, and keeps the switch "sound
/// on". Everything runs on the user-interface thread; nothing here ever shows a message.
namespace basKelvoMusic {

/// Full paths of the tunes, in the order in which the file system gave them; the last slot is empty
/// and does not count.
extern std::vector<std::filesystem::path> CorrectFiles, WrongFiles, SongFiles;

/// The tune in that player has come to its end since its file was opened. The owner of the players
/// sets a flag when the player says so; opening a new file clears it.
extern bool fCorrectDone, fWrongDone, fSongDone;

/// What the module keeps to itself from one call to the next. A test begins with a fresh one.
struct State {
  TunePlayer* Correct = nullptr;
  TunePlayer* Wrong = nullptr;
  TunePlayer* Song = nullptr;
  bool fSoundClosing = false;   ///< CloseSound() has run, and InitSound() not since
  bool fSoundOn = false;        ///< the switch
  bool fSoundReady = false;     ///< there are players
  std::size_t LastCorrect = 0;  ///< index of the correct tune that was opened last
};
extern Seam<State> state;

/// Lists the tunes in the Correct, Wrong and Song folders: all ordinary files that are not hidden.
/// A missing folder gives an empty list. Any other error ends the listing, and the lists that were
/// complete by then remain.
void LoadSoundLists();

/// Takes the three players, which stay their owner's and must live until CloseSound(), opens a tune
/// in each if sound is on already, then reads the stored switch and calls SetSound() with it. A
/// stored text that is no Boolean counts as "True", as no text does.
void InitSound(TunePlayer& Correct, TunePlayer& Wrong, TunePlayer& Song);

/// Whether sound is switched on.
bool SoundOn();

/// Switches sound and stores the switch. Off stops the three players and takes them back to the
/// beginning; on opens and plays nothing.
void SetSound(bool On);

/// Plays the wrong tune and cuts off the others; one that still plays goes on undisturbed.
/// Processes pending events.
void PlayWrong();

/// Plays a song and cuts off the other tunes; one that still plays goes on undisturbed. Processes
/// pending events.
void PlaySong();

/// Closes the three players and lets them go, then processes pending events. A second call finds no
/// players and does no harm.
void CloseSound();

}  // namespace basKelvoMusic
