#pragma once

#include <string>

#include "seams/Seam.h"
#include "sound/Synthesizer.h"

/// Opens the machine's sound device and lets the synthesizer sound on it, from a thread of
/// FluidSynth's own, until the result is destroyed: PulseAudio, which PipeWire answers for too,
/// else ALSA. Null if there is neither. May take a while: not for the user-interface thread. Prints
/// nothing.
Fluid<fluid_audio_driver_t> openSoundDevice(const Synthesizer& synthesizer);

/// The file to which the sound is written instead, as raw 16-bit stereo at 44100 Hz, in the time it
/// would take to hear it; empty: the device. Replace it while no tune plays.
namespace SoundDevice {
extern Seam<std::string> file;
}
