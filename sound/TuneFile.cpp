#include "sound/TuneFile.h"

#include <algorithm>
#include <fstream>
#include <string_view>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostBytes = 1 << 20;
constexpr double kLongestMicroseconds = 3600e6;
constexpr std::uint32_t kUsualTempo = 500000;

/// Takes numbers from the front of some bytes. Once more is asked than there is, `valid` is false
/// and everything taken is 0.
class Bytes {
 public:
  explicit Bytes(std::span<const std::uint8_t> bytes) : left_(bytes) {}

  bool valid = true;
  bool empty() const { return left_.empty(); }

  std::span<const std::uint8_t> take(std::size_t count) {
    if (count > left_.size()) {
      valid = false;
      left_ = {};
      return {};
    }
    const auto taken = left_.first(count);
    left_ = left_.subspan(count);
    return taken;
  }

  /// A number of `count` bytes, the highest first.
  std::uint32_t number(std::size_t count) {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : take(count)) value = value << 8 | byte;
    return value;
  }

  /// A number in groups of seven bits, at most four groups.
  std::uint32_t variableNumber() {
    std::uint32_t value = 0;
    for (int group = 0; group < 4; ++group) {
      const std::uint32_t byte = number(1);
      value = value << 7 | (byte & 0x7F);
      if (byte < 0x80) return value;
    }
    valid = false;
    return 0;
  }

  bool startsWith(std::string_view name) {
    const auto taken = take(name.size());
    return std::equal(taken.begin(), taken.end(), name.begin(), name.end());
  }

 private:
  std::span<const std::uint8_t> left_;
};

struct TempoChange {
  std::uint64_t tick;
  std::uint32_t microseconds;  ///< of a quarter note
};

struct Score {
  std::vector<TempoChange> tempos;
  std::uint64_t lastTick = 0;
};

/// Reads a meta event's type and body; true at the end of the track.
bool readMeta(Bytes& track, std::uint64_t tick, Score& score) {
  constexpr std::uint32_t kEndOfTrack = 0x2F, kTempo = 0x51;
  const std::uint32_t type = track.number(1);
  Bytes body(track.take(track.variableNumber()));
  if (type == kTempo && track.valid) {
    score.tempos.push_back({tick, body.number(3)});
    track.valid = body.valid;
  }
  return type == kEndOfTrack;
}

/// Reads one track to its end mark; false for a damaged one.
bool readTrack(Bytes track, Score& score) {
  std::uint64_t tick = 0;
  std::uint32_t running = 0;
  while (track.valid && !track.empty()) {
    tick += track.variableNumber();
    std::uint32_t status = track.number(1);
    bool firstDataTaken = false;
    if (status < 0x80) {  // a data byte: the last channel status still holds
      firstDataTaken = true;
      status = running;
    }
    if (status == 0xFF) {
      if (!readMeta(track, tick, score)) continue;
      score.lastTick = std::max(score.lastTick, tick);
      return track.valid;
    }
    if (status == 0xF0 || status == 0xF7) {
      track.take(track.variableNumber());
    } else if (status >= 0x80 && status < 0xF0) {
      running = status;
      const bool oneByte = (status & 0xE0) == 0xC0;
      track.take((oneByte ? 1u : 2u) - (firstDataTaken ? 1u : 0u));
    } else {
      return false;
    }
  }
  return false;
}

/// Microseconds from tick 0 to the last tick.
double playingTime(Score& score, double ticksPerQuarter) {
  std::stable_sort(score.tempos.begin(), score.tempos.end(),
                   [](const TempoChange& a, const TempoChange& b) { return a.tick < b.tick; });
  double time = 0;
  TempoChange now{0, kUsualTempo};
  const auto runTo = [&](std::uint64_t tick) {
    time += static_cast<double>(tick - now.tick) * now.microseconds / ticksPerQuarter;
  };
  for (const TempoChange& next : score.tempos) {
    if (next.tick >= score.lastTick) break;
    runTo(next.tick);
    now = next;
  }
  runTo(score.lastTick);
  return time;
}

}  // namespace

std::optional<std::chrono::milliseconds> midiLength(std::span<const std::uint8_t> bytes) {
  Bytes file(bytes);
  if (!file.startsWith("MThd")) return {};
  Bytes header(file.take(file.number(4)));
  header.number(2);  // the format: tracks play side by side in all of them
  const std::uint32_t tracks = header.number(2);
  const std::uint32_t division = header.number(2);
  if (!file.valid || !header.valid || division == 0 || division >= 0x8000) return {};

  Score score;
  std::uint32_t read = 0;
  while (read < tracks) {
    const bool isTrack = file.startsWith("MTrk");
    const Bytes chunk(file.take(file.number(4)));
    if (!file.valid) return {};
    if (!isTrack) continue;
    if (!readTrack(chunk, score)) return {};
    ++read;
  }
  const double time = playingTime(score, division);
  if (time > kLongestMicroseconds) return {};
  return std::chrono::milliseconds(static_cast<std::int64_t>(time / 1000));
}

std::optional<Tune> readTune(const fs::path& file) {
  std::error_code none;
  if (!fs::is_regular_file(file, none)) return {};
  const std::uintmax_t size = fs::file_size(file, none);
  if (none || size > kMostBytes) return {};
  std::ifstream stream(file, std::ios::binary);
  Tune tune;
  tune.bytes.resize(static_cast<std::size_t>(size));
  stream.read(reinterpret_cast<char*>(tune.bytes.data()), static_cast<std::streamsize>(size));
  if (!stream) return {};
  const auto length = midiLength(tune.bytes);
  if (!length) return {};
  tune.length = *length;
  return tune;
}
