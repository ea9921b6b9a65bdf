#include "sound/TunePlayer.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <fstream>

#include "sound/SoundDevice.h"
#include "sound/Synthesizer.h"
#include "tests/sound/MidiBytes.h"

namespace fs = std::filesystem;

namespace {

class Player : public ::testing::Test {
 protected:
  /// A file with one note of that many milliseconds.
  fs::path tune(std::uint32_t milliseconds) {
    const fs::path file = path("tune" + std::to_string(milliseconds) + ".mid");
    putBytes(file, midi(500, {note(0, milliseconds)}));
    return file;
  }
  fs::path path(const std::string& name) const {
    return folder_.filePath(name.c_str()).toStdString();
  }

  std::unique_ptr<TunePlayer> open(const fs::path& file) {
    auto player = makeTunePlayer();
    player->DeviceType = "Sequencer";
    player->FileName = file;
    player->Done = [this] { ++done; };
    player->Command("Open");
    return player;
  }
  bool waitForDone(int times) {
    return QTest::qWaitFor([&] { return done >= times; }, 20000);
  }
  /// Lets time pass without the event loop.
  static void stall(int milliseconds) {
    QElapsedTimer passed;
    passed.start();
    while (!passed.hasExpired(milliseconds)) continue;
  }

  int done = 0;

 private:
  QTemporaryDir folder_;
};

TEST_F(Player, AnOpenTunePlaysItsTimeAndReportsItsEndOnce) {
  auto player = open(tune(150));
  EXPECT_EQ(player->Mode(), 525);
  QElapsedTimer passed;
  passed.start();
  player->Command("Play");
  EXPECT_EQ(player->Mode(), 526);
  int modeWhenDone = 0;
  player->Done = [&] {
    ++done;
    modeWhenDone = player->Mode();
  };
  ASSERT_TRUE(waitForDone(1));
  EXPECT_GE(passed.elapsed(), 149);
  EXPECT_EQ(modeWhenDone, 525);
  passed.start();
  player->Command("Play");
  EXPECT_EQ(player->Mode(), 526);
  ASSERT_TRUE(waitForDone(2));
  EXPECT_GE(passed.elapsed(), 149) << "from the beginning again";
  player->Command("Close");
  EXPECT_EQ(player->Mode(), 524);
  EXPECT_EQ(done, 2);
}

TEST_F(Player, WhatIsNoTuneStaysClosedAndSilent) {
  putBytes(path("empty.mid"), "");
  putBytes(path("damaged.mid"), "MThd and so on");
  for (const fs::path& file : {fs::path(), path("missing"), path("empty.mid"), path("damaged.mid"),
                               path("."), fs::path("/dev/zero")}) {
    auto player = open(file);
    EXPECT_EQ(player->Mode(), 524) << file;
    for (const char* command : {"Play", "Stop", "Back", "Close", "Sing"}) player->Command(command);
    EXPECT_EQ(player->Mode(), 524) << file;
  }
  auto player = makeTunePlayer();
  player->FileName = tune(10);
  player->Command("Open");
  EXPECT_EQ(player->Mode(), 524) << "no device type";
}

TEST_F(Player, ALateEndOfAClosedStoppedOrReopenedTuneIsDropped) {
  for (const char* command : {"Close", "Stop", "Back"}) {
    auto player = open(tune(5));
    player->Command("Play");
    stall(20);  // its time is over, but nobody has been told
    player->Command(command);
    player->Command("Stop");
    player->FileName = tune(6);
    player->Command("Open");
    auto witness = open(tune(30));
    bool ended = false;
    witness->Done = [&] { ended = true; };
    witness->Command("Play");
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended; }, 20000));
    EXPECT_EQ(player->Mode(), 525);
    EXPECT_EQ(done, 0) << command;
  }
}

TEST_F(Player, StopKeepsThePlaceAndBackReturnsToTheBeginning) {
  auto stopped = open(tune(600)), whole = open(tune(600)), rewound = open(tune(600));
  std::string order;
  stopped->Done = [&] { order += "stopped "; };
  whole->Done = [&] { order += "whole "; };
  rewound->Done = [&] { order += "rewound "; };
  stopped->Command("Play");
  rewound->Command("Play");
  stall(500);
  stopped->Command("Stop");
  rewound->Command("Stop");
  rewound->Command("Back");
  EXPECT_EQ(stopped->Mode(), 525);
  whole->Command("Play");
  stall(3);
  stopped->Command("Play");
  rewound->Command("Play");
  ASSERT_TRUE(QTest::qWaitFor([&] { return order.ends_with("rewound "); }, 20000));
  EXPECT_EQ(order, "stopped whole rewound ");
}

TEST_F(Player, WithoutASoundFontATuneTakesItsTimeInSilence) {
  for (const fs::path& font : {path("missing.sf2"), tune(1)}) {
    const Replacement fonts(Synthesizer::font, font),
        device(SoundDevice::file, path("sound.raw").string());
    auto player = open(tune(20));
    player->Command("Play");
    ASSERT_TRUE(waitForDone(1));
    done = 0;
    player.reset();
    EXPECT_FALSE(fs::exists(path("sound.raw"))) << "no device is opened for nothing";
  }
}

/// The loudest sample of a raw file of 16-bit samples, full scale being 1.
double loudest(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  int peak = 0;
  for (std::int16_t sample; stream.read(reinterpret_cast<char*>(&sample), sizeof sample);)
    peak = std::max(peak, std::abs(int{sample}));
  return peak / 32768.0;
}

std::ptrdiff_t threads() {
  return std::distance(fs::directory_iterator("/proc/self/task"), {});
}

/// The system counts a thread for a moment longer than it lives.
bool threadsBecome(std::ptrdiff_t count) {
  return QTest::qWaitFor([&] { return threads() == count; }, 20000);
}

TEST_F(Player, ATuneSoundsOnTheDeviceAndLeavesNoThreadBehind) {
  const fs::path sound = path("sound.raw");
  const Replacement device(SoundDevice::file, sound.string());
  const auto before = threads();
  auto player = open(tune(1500));
  EXPECT_EQ(threads(), before) << "nothing is made before a tune plays";
  player->Command("Play");
  EXPECT_TRUE(QTest::qWaitFor([&] { return loudest(sound) > 0.01; }, 20000));
  ASSERT_TRUE(waitForDone(1));
  const auto halfSecond = 44100 / 2 * 2 * sizeof(std::int16_t);
  const auto enough = fs::file_size(sound) + halfSecond;
  EXPECT_TRUE(QTest::qWaitFor([&] { return fs::file_size(sound) > enough; }, 20000)) << "rings";
  EXPECT_TRUE(threadsBecome(before + 1)) << "then the device is closed";

  player->Command("Play");
  EXPECT_TRUE(threadsBecome(before + 2)) << "and open again";
  player->Command("Stop");
  EXPECT_TRUE(threadsBecome(before + 1)) << "cut off at once";
  EXPECT_EQ(done, 1);
  player.reset();
  EXPECT_TRUE(threadsBecome(before));
}

/// A file that nobody reads holds up whoever opens it, as a sound server that hangs does.
TEST_F(Player, ADeviceThatHangsHoldsUpNothingButTheSound) {
  const auto before = threads();
  const std::string hanging = path("hanging");
  ASSERT_EQ(mkfifo(hanging.c_str(), 0600), 0);
  const Replacement device(SoundDevice::file, hanging);
  auto player = open(tune(50));
  player->Command("Play");
  ASSERT_TRUE(waitForDone(1));
  player->Command("Close");
  player.reset();
  EXPECT_TRUE(threadsBecome(before + 1)) << "still held up, and left to itself";
  std::ifstream reader(hanging, std::ios::binary);
  EXPECT_TRUE(threadsBecome(before));
}

TEST_F(Player, APlayerThatGoesWhileItsTuneStartsLeavesNothingBehind) {
  const auto before = threads();
  for (int round = 0; round < 5; ++round) {
    auto player = open(tune(1000)), other = open(tune(1000));
    player->Command("Play");
    other->Command("Play");
    player.reset();
    EXPECT_EQ(other->Mode(), 526);
  }
  EXPECT_TRUE(threadsBecome(before));
  EXPECT_EQ(done, 0);
}

}  // namespace
