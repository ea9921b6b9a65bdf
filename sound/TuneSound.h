#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <thread>

#include "sound/TuneFile.h"

/// The sound of all tune players. A thread of its own makes the synthesizer and opens the device,
/// for as long as a tune sounds; the members, called from the user-interface thread, only
/// leave it a request and return at once. What has no sound is silent, and nobody is told. One tune
/// sounds at a time. Each start gives it a number; a request about a tune that another one has
/// replaced is ignored.
class TuneSound {
 public:
  using Number = int;

  /// The sound that the players share: made for the first that asks, gone with the last that holds
  /// it, its thread and its device with it.
  static std::shared_ptr<TuneSound> shared();

  TuneSound();
  TuneSound(TuneSound&&) = delete;
  ~TuneSound();

  /// Lets a tune sound from its beginning, in place of any other.
  Number start(std::shared_ptr<const Tune> tune);
  /// Cuts the sound off; the tune keeps its place.
  void pause(Number number);
  /// Lets a paused tune sound on.
  void resume(Number number);
  /// The tune has come to its end: its last notes ring for two seconds more.
  void ringOut(Number number);

 private:
  class Playing;
  struct Shared;

  void want(Number number, bool sounding,
            std::optional<std::chrono::steady_clock::time_point> until = {});
  static void followUntilOver(Shared& shared);
  static void run(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;  ///< by the two threads
  std::thread thread_;
};
