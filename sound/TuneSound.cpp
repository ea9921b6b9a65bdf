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
struct Request {
  TuneSound::Number number = 0;
  std::shared_ptr<const Tune> tune;
  bool sounding = false;
  std::optional<Clock::time_point> until;  ///< forever, if not given
};

}  // namespace

struct TuneSound::Shared {
  std::mutex mutex;  ///< guards all that follows
  std::condition_variable changed;
  Request request;
  bool pending = false;  ///< something is new for the sound's thread
  bool over = false;     ///< it is to end
  bool ended = false;    ///< and it has

  void notify() {
    pending = true;
    changed.notify_all();
  }
};

/// What the thread has made so far. The device is open only while a tune sounds, and everything
/// else is touched only while it is closed: FluidSynth's own thread is never met halfway.
class TuneSound::Playing {
 public:
  void follow(const Request& request) {
    const bool other = request.number != number_;
    if (!other && request.sounding == sounding_) return;
    device_.reset();
    sounding_ = request.sounding;
    if (!sounding_) return;
    if (other) load(request);
    if (!player_) return;
    fluid().fluid_synth_all_sounds_off(synthesizer_->synth(), -1);
    device_ = openSoundDevice(*synthesizer_);
  }

 private:
  void load(const Request& request) {
    if (!synthesizer_) synthesizer_.emplace();
    player_.reset();
    player_ = synthesizer_->playerOf(request.tune->bytes.data(), request.tune->bytes.size());
    number_ = request.number;
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

TuneSound::TuneSound() : shared_(std::make_shared<Shared>()) {
  try {
    thread_ = std::thread(run, shared_);
  } catch (const std::system_error&) {
    // no thread to be had: the tunes are silent
  }
}

TuneSound::~TuneSound() {
  if (!thread_.joinable()) return;
  std::unique_lock lock(shared_->mutex);
  shared_->over = true;
  shared_->notify();
  const bool ended = shared_->changed.wait_for(lock, kPatience, [this] { return shared_->ended; });
  lock.unlock();
  if (ended) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

TuneSound::Number TuneSound::start(std::shared_ptr<const Tune> tune) {
  const std::lock_guard lock(shared_->mutex);
  Request& request = shared_->request;
  request = {request.number + 1, std::move(tune), true, {}};
  shared_->notify();
  return request.number;
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
  const std::lock_guard lock(shared_->mutex);
  Request& request = shared_->request;
  if (number != request.number) return;
  request.sounding = sounding;
  request.until = until;
  shared_->notify();
}

/// Does what the user-interface thread wants to hear, until it is over.
void TuneSound::followUntilOver(Shared& shared) {
  Playing playing;
  std::unique_lock lock(shared.mutex);
  while (!shared.over) {
    shared.pending = false;
    const Request request = shared.request;
    lock.unlock();
    playing.follow(request);
    lock.lock();
    const auto pending = [&] { return shared.pending; };
    if (!request.until) {
      shared.changed.wait(lock, pending);
    } else if (!shared.changed.wait_until(lock, *request.until, pending)) {
      shared.request.sounding = false;
      shared.request.until.reset();
    }
  }
}

void TuneSound::run(const std::shared_ptr<Shared>& shared) {
  followUntilOver(*shared);
  const std::lock_guard lock(shared->mutex);
  shared->ended = true;
  shared->changed.notify_all();
}
