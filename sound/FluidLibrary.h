#pragma once

#include <fluidsynth.h>

/// FluidSynth's functions that the program and its tests call, by their own names and types. They
/// are looked up when a tune first sounds, not linked: the library brings some forty others along,
/// which would cost a sixth of the time to the first window and 4 MiB whether a tune is ever heard
/// or not. Where it is not installed, the game is silent.
struct FluidLibrary {
// clang-format off
#define QUINZOLITH_EACH_FLUID_FUNCTION(DO) \
  DO(new_fluid_settings)           DO(delete_fluid_settings) \
  DO(new_fluid_synth)              DO(delete_fluid_synth) \
  DO(new_fluid_player)             DO(delete_fluid_player) \
  DO(new_fluid_audio_driver)       DO(delete_fluid_audio_driver) \
  DO(fluid_set_log_function)       DO(fluid_free) \
  DO(fluid_settings_setint)        DO(fluid_settings_setnum) \
  DO(fluid_settings_setstr)        DO(fluid_settings_dupstr) \
  DO(fluid_settings_foreach_option) \
  DO(fluid_is_soundfont)           DO(fluid_synth_sfload) \
  DO(fluid_synth_system_reset)     DO(fluid_synth_all_sounds_off) \
  DO(fluid_synth_write_float) \
  DO(fluid_player_add_mem)         DO(fluid_player_play)
// clang-format on
#define QUINZOLITH_DECLARE(name) decltype(::name)* name = nullptr;
  QUINZOLITH_EACH_FLUID_FUNCTION(QUINZOLITH_DECLARE)
#undef QUINZOLITH_DECLARE

  bool complete = false;  ///< all of them are there; otherwise call none
};

/// Opens the library at the first call, which takes about 20 ms; it stays open. From any thread.
const FluidLibrary& fluid();
