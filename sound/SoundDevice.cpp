#include "sound/SoundDevice.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

Seam<std::string> SoundDevice::file{{}};

namespace {

/// A buffer of 93 ms: nobody hears the delay, and a busy machine does not tear the sound.
constexpr int kPeriodFrames = 512, kPeriods = 8;

std::vector<std::string> builtInDrivers(fluid_settings_t* settings) {
  std::vector<std::string> names;
  fluid().fluid_settings_foreach_option(
      settings, "audio.driver", &names, [](void* list, const char*, const char* option) {
        static_cast<std::vector<std::string>*>(list)->push_back(option);
      });
  return names;
}

/// Whether the kernel knows a card to play on. ALSA's library prints its despair where there is
/// none.
bool hasCard() {
  std::error_code none;
  for (fs::directory_iterator entry("/dev/snd", none), end; !none && entry != end;
       entry.increment(none)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with("pcm") && name.ends_with("p")) return true;
  }
  return false;
}

/// The drivers to try, best first. Those that would start a sound server are not among them.
std::vector<std::string> driversToTry(fluid_settings_t* settings) {
  if (!SoundDevice::file->empty()) {
    fluid().fluid_settings_setstr(settings, "audio.file.name", SoundDevice::file->c_str());
    fluid().fluid_settings_setstr(settings, "audio.file.type", "raw");
    return {"file"};
  }
  const std::vector<std::string> builtIn = builtInDrivers(settings);
  const auto has = [&](const char* name) { return std::ranges::count(builtIn, name) > 0; };
  std::vector<std::string> drivers;
  if (has("pulseaudio")) drivers.push_back("pulseaudio");
  if (has("alsa") && hasCard()) drivers.push_back("alsa");
  return drivers;
}

}  // namespace

Fluid<fluid_audio_driver_t> openSoundDevice(const Synthesizer& synthesizer) {
  fluid_settings_t* settings = synthesizer.settings();
  fluid().fluid_settings_setstr(settings, "audio.pulseaudio.media-role", "game");
  fluid().fluid_settings_setint(settings, "audio.realtime-prio", 0);
  fluid().fluid_settings_setint(settings, "audio.period-size", kPeriodFrames);
  fluid().fluid_settings_setint(settings, "audio.periods", kPeriods);
  for (const std::string& driver : driversToTry(settings)) {
    fluid().fluid_settings_setstr(settings, "audio.driver", driver.c_str());
    if (Fluid<fluid_audio_driver_t> open{
            fluid().new_fluid_audio_driver(settings, synthesizer.synth())})
      return open;
  }
  return {};
}
