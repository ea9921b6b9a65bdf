// Renders every tune that ships and measures what is heard.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>

#include "sound/Synthesizer.h"
#include "sound/TuneFile.h"

namespace fs = std::filesystem;

namespace {

constexpr int kRate = 44100;

struct Sound {
  std::vector<float> samples;  ///< left, right, left, ...; the tune and the two seconds it may ring
  double length = 0;           ///< seconds that the tune plays
};

/// Seconds to an index of the samples.
std::size_t at(const Sound& sound, double seconds) {
  return std::min(sound.samples.size(), 2 * static_cast<std::size_t>(std::lround(seconds * kRate)));
}

double peak(const Sound& sound, double from, double to) {
  float loudest = 0;
  for (std::size_t i = at(sound, from); i < at(sound, to); ++i)
    loudest = std::max(loudest, std::abs(sound.samples[i]));
  return loudest;
}

double rootMeanSquare(const Sound& sound) {
  double sum = 0;
  const std::size_t count = at(sound, sound.length);
  for (std::size_t i = 0; i < count; ++i) sum += std::pow(sound.samples[i], 2);
  return std::sqrt(sum / static_cast<double>(count));
}

double decibels(double amplitude) {
  return 20 * std::log10(amplitude);
}

Sound render(const Tune& tune) {
  Sound sound;
  const Synthesizer synthesizer;
  const auto player = synthesizer.playerOf(tune.bytes.data(), tune.bytes.size());
  if (!player) return sound;
  sound.length = static_cast<double>(tune.length.count()) / 1000;
  sound.samples.resize(2 * static_cast<std::size_t>((sound.length + 2) * kRate));
  const auto frames = static_cast<int>(sound.samples.size() / 2);
  float* out = sound.samples.data();
  fluid().fluid_synth_write_float(synthesizer.synth(), frames, out, 0, 2, out, 1, 2);
  return sound;
}

struct Lengths {
  const char* folder;
  std::size_t fewest;
  double shortest, longest;  ///< seconds
};

class ShippedTunes : public ::testing::TestWithParam<Lengths> {};

TEST_P(ShippedTunes, AreHeardWholeAndUnclipped) {
  const fs::path folder = fs::path(QUINZOLITH_SOURCE_DIR) / "tunes" / GetParam().folder;
  const std::set<fs::path> files(fs::directory_iterator(folder), {});
  EXPECT_GE(files.size(), GetParam().fewest);
  for (const fs::path& file : files) {
    SCOPED_TRACE(file);
    const auto tune = readTune(file);
    ASSERT_TRUE(tune);
    const Sound sound = render(*tune);
    ASSERT_FALSE(sound.samples.empty());
    const double end = sound.length;
    std::printf("| %s | %.1f s | %.1f dB | %.1f dB |\n", file.stem().c_str(), end,
                decibels(peak(sound, 0, end + 2)), decibels(rootMeanSquare(sound)));
    EXPECT_GE(end, GetParam().shortest);
    EXPECT_LE(end, GetParam().longest);
    EXPECT_LT(peak(sound, 0, end + 2), 0.9) << "room below full scale";
    EXPECT_GT(decibels(rootMeanSquare(sound)), -30);
    EXPECT_GT(peak(sound, 0, 0.5), 0.01) << "begins at once";
    EXPECT_GT(peak(sound, end - 0.75, end), 0.01) << "no silence before its end";
    EXPECT_LT(peak(sound, end + 1.9, end + 2), 0.004) << "has rung out when the device closes";
  }
}

INSTANTIATE_TEST_SUITE_P(Sets, ShippedTunes,
                         ::testing::Values(Lengths{"Correct", 4, 1, 3}, Lengths{"Wrong", 4, 1, 2.5},
                                           Lengths{"Song", 8, 10, 25}),
                         [](const auto& set) { return std::string(set.param.folder); });

}  // namespace
