#include "sound/TunePlayer.h"

#include <QElapsedTimer>
#include <QTimer>
#include <memory>

#include "sound/TuneFile.h"
#include "sound/TuneSound.h"

namespace {

/// Keeps a tune's time with a timer of the user interface; the sound goes beside it and is never
/// waited for or asked, so no device and no thread can hold the program up.
class SequencerPlayer : public TunePlayer {
 public:
  SequencerPlayer() {
    end_.setSingleShot(true);
    end_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&end_, &QTimer::timeout, &end_, [this] { ended(); });
  }

  void Command(std::string_view command) override {
    if (command == "Open") open();
    if (command == "Close") close();
    if (command == "Play") play();
    if (command == "Stop") stop();
    if (command == "Back") back();
  }

  int Mode() const override {
    if (!tune_) return kNotOpen;
    return end_.isActive() ? kPlaying : kStopped;
  }

 private:
  void open() {
    if (tune_ || DeviceType != "Sequencer") return;
    if (auto tune = readTune(FileName)) tune_ = std::make_shared<const Tune>(std::move(*tune));
    played_ = {};
  }

  void close() {
    stop();
    tune_.reset();
  }

  void play() {
    if (Mode() != kStopped) return;
    if (played_ >= tune_->length) played_ = {};
    running_.start();
    end_.start(tune_->length - played_);
    if (!sound_) sound_ = TuneSound::shared();
    if (played_.count() > 0) {
      sound_->resume(number_);
    } else {
      number_ = sound_->start(tune_);
    }
  }

  void stop() {
    if (Mode() == kPlaying) {
      end_.stop();
      played_ += std::chrono::milliseconds(running_.elapsed());
    }
    if (sound_) sound_->pause(number_);
  }

  void back() {
    const bool playing = Mode() == kPlaying;
    stop();
    played_ = {};
    if (playing) play();
  }

  void ended() {
    played_ = tune_->length;
    sound_->ringOut(number_);
    if (const auto done = Done) done();
  }

  std::shared_ptr<const Tune> tune_;
  std::chrono::milliseconds played_{0};  ///< of the tune, up to its last start
  QElapsedTimer running_;                ///< since its last start
  QTimer end_;                           ///< active while the tune plays
  std::shared_ptr<TuneSound> sound_;     ///< from the first "Play" on
  TuneSound::Number number_ = 0;         ///< of the tune's last start
};

}  // namespace

std::unique_ptr<TunePlayer> makeTunePlayer() {
  return std::make_unique<SequencerPlayer>();
}
