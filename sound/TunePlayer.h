#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// One tune player: holds at most one MIDI file open and plays it. Members are called by their
/// multimedia control names. Everything happens on the user-interface thread, no call waits for
/// anything but the reading of a small file, and what fails, fails without a word.
class TunePlayer {
 public:
  /// The values of Mode().
  static constexpr int kNotOpen = 524;  ///< no file is open
  static constexpr int kStopped = 525;  ///< a file is open and does not play
  static constexpr int kPlaying = 526;

  TunePlayer() = default;
  TunePlayer(TunePlayer&&) = delete;
  virtual ~TunePlayer() = default;

  /// The device that a file is opened on: "Sequencer".
  std::string DeviceType;
  /// Full path of the file that the next "Open" opens.
  std::filesystem::path FileName;

  /// Runs a command; any other text, or a command that does not fit the mode, does nothing.
  ///   "Open"   opens FileName; a file that is no valid MIDI file leaves the mode at 524
  ///   "Close"  stops the sound and lets the file go
  ///   "Play"   plays on from where the tune stands; from the beginning once it has ended
  ///   "Stop"   stops the sound and keeps the place
  ///   "Back"   goes back to the beginning of the tune
  virtual void Command(std::string_view command) = 0;

  virtual int Mode() const = 0;

  /// Called, as an event of its own, when a tune has come to its end by itself: not when it was
  /// stopped or closed. The mode is 525 by then.
  std::function<void()> Done;
};

/// A player on the machine's sound device. All players share one synthesizer, which is made in the
/// background at the first "Play" and goes with the last player. Only one tune sounds at a time:
/// the one that started last. Where there is no device or no sound font, and where the device
/// vanishes, a tune takes its time in silence.
std::unique_ptr<TunePlayer> makeTunePlayer();
