#pragma once

#include <memory>
#include <string>

#include "seams/Seam.h"
#include "sound/FluidLibrary.h"

/// FluidSynth's objects, each with its own end.
struct FluidEnd {
  void operator()(fluid_settings_t* settings) const { fluid().delete_fluid_settings(settings); }
  void operator()(fluid_synth_t* synth) const { fluid().delete_fluid_synth(synth); }
  void operator()(fluid_player_t* player) const { fluid().delete_fluid_player(player); }
  void operator()(fluid_audio_driver_t* driver) const { fluid().delete_fluid_audio_driver(driver); }
};
template <class T>
using Fluid = std::unique_ptr<T, FluidEnd>;

/// A synthesizer with a General MIDI sound font: the one that FluidSynth is set up with, else the
/// small one that is installed beside this program. Samples are loaded when an instrument is first
/// wanted, so a large font costs little. Takes about 50 ms to make; says nothing about any fault.
class Synthesizer {
 public:
  Synthesizer();

  /// The only font to load; empty: the usual ones. Replace it while no tune plays.
  static Seam<std::string> font;

  /// Whether there is a synthesizer with a font: otherwise nothing can sound.
  bool sounds() const { return sounds_; }

  fluid_settings_t* settings() const { return settings_.get(); }
  fluid_synth_t* synth() const { return synth_.get(); }

  /// A player that stands at the beginning of a standard MIDI file, ready to be pumped, on silent
  /// channels; null if it cannot be had. At most one may live at a time, and not longer than this.
  Fluid<fluid_player_t> playerOf(const void* bytes, std::size_t count) const;

 private:
  bool loadFont();

  Fluid<fluid_settings_t> settings_;
  Fluid<fluid_synth_t> synth_;
  bool sounds_ = false;
};
