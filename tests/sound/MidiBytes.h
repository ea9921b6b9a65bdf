#pragma once

#include <cstdint>
#include <vector>

#include "tests/files/FileBytes.h"

/// Small standard MIDI files, written byte by byte.
using Bytes = std::vector<std::uint8_t>;

inline void putBytes(const std::filesystem::path& file, const Bytes& bytes) {
  putBytes(file, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

inline void append(Bytes& to, const Bytes& more) {
  to.insert(to.end(), more.begin(), more.end());
}

inline Bytes big(std::uint32_t value, int count) {
  Bytes bytes;
  for (int shift = 8 * (count - 1); shift >= 0; shift -= 8)
    bytes.push_back(static_cast<std::uint8_t>(value >> shift));
  return bytes;
}

inline Bytes ticks(std::uint32_t count) {
  Bytes bytes;
  if (count > 0x3FFF) bytes.push_back(static_cast<std::uint8_t>(0x80 | count >> 14));
  if (count > 0x7F) bytes.push_back(static_cast<std::uint8_t>(0x80 | (count >> 7 & 0x7F)));
  bytes.push_back(count & 0x7F);
  return bytes;
}

/// The events of a note of the piano that starts after some ticks.
inline Bytes note(std::uint32_t after, std::uint32_t length) {
  Bytes events = ticks(after);
  append(events, {0x90, 69, 110});
  append(events, ticks(length));
  append(events, {0x80, 69, 64});
  return events;
}

/// A file of one track for each list of events; the end marks are added.
inline Bytes midi(std::uint32_t ticksPerQuarter, const std::vector<Bytes>& tracks) {
  Bytes file = {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1};
  append(file, big(static_cast<std::uint32_t>(tracks.size()), 2));
  append(file, big(ticksPerQuarter, 2));
  for (const Bytes& events : tracks) {
    append(file, {'M', 'T', 'r', 'k'});
    append(file, big(static_cast<std::uint32_t>(events.size()) + 4, 4));
    append(file, events);
    append(file, {0, 0xFF, 0x2F, 0});
  }
  return file;
}
