#include "sound/TuneFile.h"

#include <gtest/gtest.h>

#include "tests/sound/MidiBytes.h"

namespace fs = std::filesystem;
using std::chrono::milliseconds;

namespace {

TEST(TuneFile, ATuneLastsToTheLastEventOfItsLongestTrack) {
  EXPECT_EQ(midiLength(midi(480, {note(480, 480)})), milliseconds(1000));
  EXPECT_EQ(midiLength(midi(480, {note(0, 480), note(960, 480), note(0, 100)})),
            milliseconds(1500));
  EXPECT_EQ(midiLength(midi(480, {})), milliseconds(0));
}

TEST(TuneFile, TempoChangesCountForAllTracksFromTheirTick) {
  const Bytes faster = {0x83, 0x60, 0xFF, 0x51, 3, 0x03, 0xD0, 0x90};  // 250 ms a beat, from beat 1
  EXPECT_EQ(midiLength(midi(480, {note(0, 1440), faster})), milliseconds(500 + 2 * 250));
}

TEST(TuneFile, EventsOfEveryKindAreSteppedOver) {
  const Bytes events = {0,    0xC0, 5,                     // program
                        10,   0x90, 60,   100,             // note, then two by running status
                        10,   60,   0,    10,   62, 100,   //
                        0,    0xF0, 3,    0x7E, 1,  0xF7,  // system exclusive
                        0,    0xE0, 0,    0x40,            // bend
                        0,    0xD0, 1,                     // pressure
                        0x81, 0x00, 0xFF, 1,    1,  'x'};  // 128 ticks later: text
  Bytes file = midi(100, {events});
  EXPECT_EQ(midiLength(file), milliseconds(158 * 5));
  const std::string chunk{"XFIH\0\0\0\2ab", 10};
  file.insert(file.begin() + 14, chunk.begin(), chunk.end());
  EXPECT_EQ(midiLength(file), milliseconds(158 * 5)) << "a chunk that nobody knows is skipped";
}

TEST(TuneFile, WhatCannotBePlayedHasNoLength) {
  EXPECT_FALSE(midiLength({}));
  EXPECT_FALSE(midiLength(midi(0, {note(0, 1)}))) << "no ticks in a beat";
  EXPECT_FALSE(midiLength(midi(0xE728, {note(0, 1)}))) << "film frames";
  EXPECT_FALSE(midiLength(midi(480, {{0, 0xF1, 0}}))) << "not a file's event";
  EXPECT_FALSE(midiLength(midi(480, {{0, 60, 100}}))) << "data without a status";
  EXPECT_FALSE(midiLength(midi(480, {{0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 0xC0, 1}})))
      << "endless number";
  EXPECT_TRUE(midiLength(midi(1, {note(0, 7199)})));
  EXPECT_FALSE(midiLength(midi(1, {note(0, 7201)}))) << "longer than an hour";
}

Bytes shippedTune() {
  const auto tune = readTune(fs::path(QUINZOLITH_SOURCE_DIR) / "tunes" / "Song" / "can-can.mid");
  return tune ? tune->bytes : Bytes();
}

TEST(TuneFile, NoBeginningOfATuneIsATune) {
  const Bytes whole = shippedTune();
  ASSERT_TRUE(midiLength(whole));
  for (std::size_t count = 0; count < whole.size(); ++count)
    ASSERT_FALSE(midiLength(std::span(whole).first(count))) << count;
}

TEST(TuneFile, OnlyRegularFilesOfSaneSizeAreRead) {
  const fs::path folder = fs::temp_directory_path() / "quinzolith-tune-file-test";
  fs::create_directories(folder);
  const auto write = [&](const char* name, const Bytes& bytes) {
    putBytes(folder / name, bytes);
    return folder / name;
  };
  const Bytes sound = midi(480, {note(0, 480)});
  Bytes large = sound;
  large.resize(2 << 20);
  EXPECT_EQ(readTune(write("sound", sound))->bytes, sound);
  EXPECT_EQ(readTune(write("sound", sound))->length, milliseconds(500));
  EXPECT_FALSE(readTune(write("empty", {})));
  EXPECT_FALSE(readTune(write("large", large)));
  EXPECT_FALSE(readTune(folder));
  EXPECT_FALSE(readTune(folder / "missing"));
  EXPECT_FALSE(readTune({}));
  fs::remove_all(folder);
}

}  // namespace
