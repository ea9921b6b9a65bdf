#include "sound/Synthesizer.h"

#include <string>
#include <vector>

Seam<std::string> Synthesizer::font{{}};

namespace {

constexpr const char* kInstalledFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";
constexpr int kVoices = 64;
/// Measured over the tunes that ship: the loudest stays below full scale.
constexpr double kGain = 0.5;

/// The sound fonts to try, best first.
std::vector<std::string> fontsToTry(fluid_settings_t* settings) {
  if (!Synthesizer::font->empty()) return {*Synthesizer::font};
  char* setUp = nullptr;
  fluid().fluid_settings_dupstr(settings, "synth.default-soundfont", &setUp);
  const std::string first = setUp ? setUp : "";
  fluid().fluid_free(setUp);
  return {first, kInstalledFont};
}

void keepQuiet() {
  for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
    fluid().fluid_set_log_function(level, nullptr, nullptr);
}

}  // namespace

Synthesizer::Synthesizer() {
  if (!fluid().complete) return;
  keepQuiet();
  settings_.reset(fluid().new_fluid_settings());
  if (!settings_) return;
  fluid().fluid_settings_setint(settings(), "synth.dynamic-sample-loading", 1);
  fluid().fluid_settings_setint(settings(), "synth.polyphony", kVoices);
  fluid().fluid_settings_setint(settings(), "synth.lock-memory", 0);
  fluid().fluid_settings_setint(settings(), "synth.chorus.active", 0);
  fluid().fluid_settings_setnum(settings(), "synth.gain", kGain);
  synth_.reset(fluid().new_fluid_synth(settings()));
  sounds_ = synth_ && loadFont();
}

bool Synthesizer::loadFont() {
  for (const std::string& file : fontsToTry(settings())) {
    if (!fluid().fluid_is_soundfont(file.c_str())) continue;
    if (fluid().fluid_synth_sfload(synth(), file.c_str(), 1) != FLUID_FAILED) return true;
  }
  return false;
}

Fluid<fluid_player_t> Synthesizer::playerOf(const void* bytes, std::size_t count) const {
  if (!sounds()) return {};
  fluid().fluid_synth_system_reset(synth());
  Fluid<fluid_player_t> player(fluid().new_fluid_player(synth()));
  if (!player || fluid().fluid_player_add_mem(player.get(), bytes, count) != FLUID_OK) return {};
  fluid().fluid_player_play(player.get());
  return player;
}
