#include "platform/TuneSound.h"

#include <system_error>

#include "platform/SoundDevice.h"
#include "platform/Synthesizer.h"

using Clock = std::chrono::steady_clock;

/// What the thread has made so far. The device is open only while a tune sounds, and everything
/// else is touched only while it is closed: FluidSynth's own thread is never met halfway.
class TuneSound::Playing {
 public:
  void follow(const Wanted& wanted) {
    const bool other = wanted.number != number_;
    if (!other && wanted.sounding == sounding_) return;
    device_.reset();
    sounding_ = wanted.sounding;
    if (!sounding_) return;
    if (other) load(wanted);
    if (!player_) return;
    fluid_synth_all_sounds_off(synthesizer_->synth(), -1);
    device_ = openSoundDevice(*synthesizer_);
  }

 private:
  void load(const Wanted& wanted) {
    if (!synthesizer_) synthesizer_.emplace();
    player_.reset();
    player_ = synthesizer_->playerOf(wanted.tune->bytes.data(), wanted.tune->bytes.size());
    number_ = wanted.number;
  }

  std::optional<Synthesizer> synthesizer_;
  Fluid<fluid_player_t> player_;
  Fluid<fluid_audio_driver_t> device_;
  Number number_ = 0;  ///< of the tune in the player
  bool sounding_ = false;
};

std::shared_ptr<TuneSound> TuneSound::shared() {
  static std::weak_ptr<TuneSound> living;
  std::shared_ptr<TuneSound> sound = living.lock();
  if (!sound) living = sound = std::make_shared<TuneSound>();
  return sound;
}

TuneSound::TuneSound() {
  try {
    thread_ = std::thread([this] { run(); });
  } catch (const std::system_error&) {
    // no thread to be had: the tunes are silent
  }
}

TuneSound::~TuneSound() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    tell();
  }
  if (thread_.joinable()) thread_.join();
}

TuneSound::Number TuneSound::start(std::shared_ptr<const Tune> tune) {
  const std::lock_guard lock(mutex_);
  wanted_ = {wanted_.number + 1, std::move(tune), true, {}};
  tell();
  return wanted_.number;
}

void TuneSound::pause(Number number) {
  want(number, false);
}

void TuneSound::resume(Number number) {
  want(number, true);
}

void TuneSound::ringOut(Number number) {
  want(number, true, Clock::now() + std::chrono::seconds(2));
}

void TuneSound::want(Number number, bool sounding, std::optional<Clock::time_point> until) {
  const std::lock_guard lock(mutex_);
  if (number != wanted_.number) return;
  wanted_.sounding = sounding;
  wanted_.until = until;
  tell();
}

void TuneSound::tell() {
  told_ = true;
  changed_.notify_one();
}

void TuneSound::run() {
  Playing playing;
  std::unique_lock lock(mutex_);
  while (!ending_) {
    told_ = false;
    const Wanted wanted = wanted_;
    lock.unlock();
    playing.follow(wanted);
    lock.lock();
    const auto told = [this] { return told_; };
    if (!wanted.until) {
      changed_.wait(lock, told);
    } else if (!changed_.wait_until(lock, *wanted.until, told)) {
      wanted_.sounding = false;
      wanted_.until.reset();
    }
  }
}
