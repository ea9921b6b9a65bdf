#include "sound/TuneSound.h"

#include <condition_variable>
#include <mutex>
#include <system_error>

#include "sound/SoundDevice.h"
#include "sound/Synthesizer.h"

using Clock = std::chrono::steady_clock;

namespace {

constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::seconds kRinging{2};

/// What the user-interface thread wants to hear.
struct Wanted {
  TuneSound::Number number = 0;
  std::shared_ptr<const Tune> tune;
  bool sounding = false;
  std::optional<Clock::time_point> until;  ///< forever, if not given
};

}  // namespace

struct TuneSound::Word {
  std::mutex mutex;  ///< guards all that follows
  std::condition_variable changed;
  Wanted wanted;
  bool told = false;   ///< something is new for the listening thread
  bool over = false;   ///< it is to end
  bool ended = false;  ///< and it has

  void tell() {
    told = true;
    changed.notify_all();
  }
};

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
    fluid().fluid_synth_all_sounds_off(synthesizer_->synth(), -1);
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

TuneSound::TuneSound() : word_(std::make_shared<Word>()) {
  try {
    thread_ = std::thread(listen, word_);
  } catch (const std::system_error&) {
    // no thread to be had: the tunes are silent
  }
}

TuneSound::~TuneSound() {
  if (!thread_.joinable()) return;
  std::unique_lock lock(word_->mutex);
  word_->over = true;
  word_->tell();
  const bool ended = word_->changed.wait_for(lock, kPatience, [this] { return word_->ended; });
  lock.unlock();
  if (ended) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

TuneSound::Number TuneSound::start(std::shared_ptr<const Tune> tune) {
  const std::lock_guard lock(word_->mutex);
  Wanted& wanted = word_->wanted;
  wanted = {wanted.number + 1, std::move(tune), true, {}};
  word_->tell();
  return wanted.number;
}

void TuneSound::pause(Number number) {
  want(number, false);
}

void TuneSound::resume(Number number) {
  want(number, true);
}

void TuneSound::ringOut(Number number) {
  want(number, true, Clock::now() + kRinging);
}

void TuneSound::want(Number number, bool sounding, std::optional<Clock::time_point> until) {
  const std::lock_guard lock(word_->mutex);
  Wanted& wanted = word_->wanted;
  if (number != wanted.number) return;
  wanted.sounding = sounding;
  wanted.until = until;
  word_->tell();
}

/// Follows the word of the user-interface thread until it is over.
void TuneSound::obey(Word& word) {
  Playing playing;
  std::unique_lock lock(word.mutex);
  while (!word.over) {
    word.told = false;
    const Wanted wanted = word.wanted;
    lock.unlock();
    playing.follow(wanted);
    lock.lock();
    const auto told = [&] { return word.told; };
    if (!wanted.until) {
      word.changed.wait(lock, told);
    } else if (!word.changed.wait_until(lock, *wanted.until, told)) {
      word.wanted.sounding = false;
      word.wanted.until.reset();
    }
  }
}

void TuneSound::listen(const std::shared_ptr<Word>& word) {
  obey(*word);
  const std::lock_guard lock(word->mutex);
  word->ended = true;
  word->changed.notify_all();
}
