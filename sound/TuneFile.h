#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

/// A tune in memory: the bytes of a standard MIDI file, and how long it plays.
struct Tune {
  std::vector<std::uint8_t> bytes;
  std::chrono::milliseconds length{0};
};

/// How long a standard MIDI file plays, from its start to the last event of its longest track.
/// Format: "MThd", tracks in "MTrk" chunks, other chunks skipped; times in ticks of a quarter note,
/// tempo changes of any track count for all.
/// Errors: nothing for bytes that end too early, break the format, count time in film frames, or
/// claim to play for more than an hour. FluidSynth tells none of this before it plays.
std::optional<std::chrono::milliseconds> midiLength(std::span<const std::uint8_t> bytes);

/// Reads a tune; nothing for what is missing, no regular file, larger than a megabyte or no valid
/// MIDI file.
std::optional<Tune> readTune(const std::filesystem::path& file);
