#include "services/basKelvoMusic.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <map>
#include <set>

#include "model/Random.h"
#include "platform/PendingEvents.h"
#include "platform/Program.h"
#include "platform/Settings.h"
#include "sound/TunePlayer.h"
#include "tests/files/FileBytes.h"

namespace fs = std::filesystem;
namespace music = basKelvoMusic;
using Log = std::vector<std::string>;

namespace {

/// Writes down what it is told, with its name in front, and pretends to play.
class RecordingPlayer : public TunePlayer {
 public:
  RecordingPlayer(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

  void Command(std::string_view command) override {
    const std::string file = command == "Open" ? " " + FileName.filename().string() : "";
    log_.push_back(name_ + " " + std::string(command) + file);
    if (command == "Open")
      mode = FileName.empty() || DeviceType != "Sequencer" ? kNotOpen : kStopped;
    if (command == "Close") mode = kNotOpen;
    if (command == "Play") mode = kPlaying;
    if (command == "Stop" && mode == kPlaying) mode = kStopped;
  }
  int Mode() const override { return mode; }

  int mode = kNotOpen;

 private:
  std::string name_;
  Log& log_;
};

class Music : public ::testing::Test {
 protected:
  Music() {
    forgetLists();
    fs::create_directories(root_ / "Kelvo Software" / "Quinzolith");
  }

  static void forgetLists() {
    for (auto* files : {&music::CorrectFiles, &music::WrongFiles, &music::SongFiles})
      files->assign(1, {});
    music::fCorrectDone = music::fWrongDone = music::fSongDone = false;
  }
  fs::path tunes() const { return root_ / "Kelvo Software" / "Common Files" / "MIDI"; }
  fs::path add(const std::string& set, const std::string& name) {
    fs::create_directories(tunes() / set);
    putBytes(tunes() / set / name, "tune");
    return tunes() / set / name;
  }
  /// One wrong tune, one song, two correct tunes c0 and c1, in this order.
  void addTunes() {
    music::WrongFiles = {add("Wrong", "w"), {}};
    music::SongFiles = {add("Song", "s"), {}};
    music::CorrectFiles = {add("Correct", "c0"), add("Correct", "c1"), {}};
    random = 0.99;
  }
  /// What is logged from here to the next call.
  Log logOf(const std::function<void()>& action) {
    log.clear();
    action();
    return log;
  }
  /// Bound, sound on, nothing open: as after the first InitSound of a run.
  void initOn() {
    addTunes();
    init();
    ASSERT_TRUE(music::SoundOn());
  }
  void init() { music::InitSound(correct, wrong, song); }
  static std::string stored() {
    return Settings::get(Settings::application(), "Sound", "Status", "nothing");
  }
  static void store(const std::string& text) {
    Settings::save(Settings::application(), "Sound", "Status", text);
  }

  Log log;
  RecordingPlayer correct{"correct", log}, wrong{"wrong", log}, song{"song", log};
  double random = 0;

 private:
  QTemporaryDir folder_;
  fs::path root_ = folder_.path().toStdString();
  Replacement<Settings::Place> settings_{Settings::place,
                                         Settings::Place{(root_ / "settings.ini").string()}};
  Replacement<std::function<fs::path()>> installed_{
      Program::programFolder, [this] { return root_ / "Kelvo Software" / "Quinzolith"; }};
  Replacement<music::State> fresh_{music::state, {}};
  Replacement<std::function<double()>> random_{RandomNumbers::next, [this] { return random; }};
};

std::set<fs::path> listed(const std::vector<fs::path>& files) {
  return {files.begin(), files.end() - 1};
}

TEST_F(Music, ListsHoldTheOrdinaryFilesOfEachFolderUntilAnErrorAndAnEmptyLastSlot) {
  const fs::path one = add("Wrong", "one.mid"), two = add("Wrong", "two"),
                 tune = add("Song", "ü.txt");
  add("Wrong", ".hidden.mid");
  fs::create_directories(tunes() / "Wrong" / "folder.mid");
  music::LoadSoundLists();
  EXPECT_EQ(listed(music::WrongFiles), (std::set<fs::path>{one, two}));
  EXPECT_EQ(music::WrongFiles.back(), fs::path());
  EXPECT_EQ(music::SongFiles, (std::vector<fs::path>{tune, {}}));
  EXPECT_EQ(music::CorrectFiles, std::vector<fs::path>(1)) << "a missing folder is an empty list";

  forgetLists();
  const fs::path kept = add("Correct", "kept.mid");
  fs::remove_all(tunes() / "Wrong");
  fs::create_directory_symlink("Wrong", tunes() / "Wrong");  // leads to itself
  music::LoadSoundLists();
  EXPECT_EQ(music::CorrectFiles.front(), kept) << "listed before";
  EXPECT_EQ(music::WrongFiles, std::vector<fs::path>(1));
  EXPECT_EQ(music::SongFiles, std::vector<fs::path>(1));
}

TEST_F(Music, TheFirstInitOpensNothingAndASecondWithSoundOnOpensThree) {
  addTunes();
  EXPECT_EQ(logOf([this] { init(); }), Log{});
  EXPECT_EQ(stored(), "True");
  music::CloseSound();
  EXPECT_EQ(logOf([this] { init(); }), (Log{"correct Close", "correct Open c1", "wrong Close",
                                            "wrong Open w", "song Close", "song Open s"}));
}

TEST_F(Music, TheSwitchIsReadAsABooleanAndWrittenBackAtEachInit) {
  const std::map<std::string, bool> texts = {
      {"True", true},   {"fALSE", false}, {"false", false}, {"0", false},  {" 0.0 ", false},
      {"-1", true},     {"+2", true},     {"1e-3", true},   {"", true},    {"off", true},
      {"False!", true}, {"nan", true},    {"1e999", true},  {"+-0", true}, {"0 0", true}};
  for (const auto& [text, on] : texts) {
    store(text);
    const Replacement<music::State> anotherRun{music::state, {}};
    init();
    EXPECT_EQ(music::SoundOn(), on) << text;
    EXPECT_EQ(stored(), on ? "True" : "False") << text;
  }
}

TEST_F(Music, AWrongTuneIsPlayedToItsEndAndTheNextOneOpenedThen) {
  initOn();
  music::fWrongDone = music::fCorrectDone = true;
  EXPECT_EQ(logOf(music::PlayWrong),
            (Log{"wrong Close", "wrong Open w", "song Close", "correct Close", "wrong Play",
                 "correct Close", "correct Open c1"}));
  EXPECT_FALSE(music::fWrongDone);
  EXPECT_FALSE(music::fCorrectDone);
  EXPECT_EQ(logOf(music::PlayWrong), (Log{"song Close"})) << "it plays on";
  wrong.mode = TunePlayer::kStopped;
  music::fWrongDone = true;
  EXPECT_EQ(logOf(music::PlayWrong).at(1), "wrong Open w");
  wrong.mode = TunePlayer::kStopped;  // stopped half-way: not done
  EXPECT_EQ(logOf(music::PlayWrong).at(1), "wrong Play");
}

TEST_F(Music, ASongCutsOffTheWrongTuneAndPreparesTheOthers) {
  initOn();
  music::PlayWrong();
  music::fSongDone = true;
  EXPECT_EQ(logOf(music::PlaySong),
            (Log{"song Close", "song Open s", "wrong Close", "song Play", "correct Close",
                 "correct Open c0", "wrong Close", "wrong Open w"}));
  EXPECT_FALSE(music::fSongDone);
  EXPECT_EQ(logOf(music::PlayWrong),
            (Log{"song Close", "wrong Play", "correct Close", "correct Open c1"}));
}

TEST_F(Music, SwitchingOffStopsAndRewindsAllAndSwitchingOnPlaysNothing) {
  initOn();
  EXPECT_EQ(
      logOf([] { music::SetSound(false); }),
      (Log{"correct Stop", "correct Back", "wrong Stop", "wrong Back", "song Stop", "song Back"}));
  EXPECT_EQ(stored(), "False");
  for (const auto& play : {music::PlayWrong, music::PlaySong}) EXPECT_EQ(logOf(play), Log{});
  EXPECT_EQ(logOf([] { music::SetSound(true); }), Log{});
  EXPECT_EQ(stored(), "True");
}

TEST_F(Music, AnEmptyListOpensTheEmptyNameAndPlaysNothing) {
  init();
  EXPECT_EQ(logOf(music::PlayWrong),
            (Log{"wrong Close", "wrong Open ", "song Close", "correct Close"}));
  EXPECT_EQ(logOf(music::PlaySong),
            (Log{"song Close", "song Open ", "correct Close", "wrong Close"}));
  EXPECT_EQ(wrong.Mode(), TunePlayer::kNotOpen);
}

TEST_F(Music, DrawsReachEveryTuneAndNoOtherSlot) {
  for (int i = 0; i < 5; ++i) add("Wrong", std::to_string(i));
  music::LoadSoundLists();
  init();
  for (int i = 0; i < 5; ++i) {
    for (const double part : {0.0, 0.1999}) {
      random = i / 5.0 + part;
      music::fWrongDone = true;
      music::PlayWrong();
      EXPECT_EQ(wrong.FileName, music::WrongFiles.at(static_cast<std::size_t>(i)));
      wrong.mode = TunePlayer::kStopped;
    }
  }
}

TEST_F(Music, CorrectTunesNeverComeTwiceInARowAndTheFirstIsNeverTheFirst) {
  initOn();
  const auto nextCorrect = [this] {
    music::PlayWrong();
    wrong.mode = TunePlayer::kStopped;
    return correct.FileName.filename();
  };
  bool stuck = false;
  const Replacement numbers(RandomNumbers::next, [&stuck, flip = 0]() mutable {
    return !stuck && flip++ % 3 == 0 ? 0.2 : 0.7;
  });
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(nextCorrect(), i % 2 == 0 ? "c1" : "c0");
    if (i == 5) stuck = true;  // a stuck generator does not stop the game
  }
  music::CorrectFiles = {"only", {}};
  for (int i = 0; i < 2; ++i) EXPECT_EQ(nextCorrect(), "only") << "again and again";
}

TEST_F(Music, ClosingClosesInOrderOnceAndLeavesNothingToPlayOn) {
  initOn();
  EXPECT_EQ(logOf(music::CloseSound), (Log{"correct Close", "wrong Close", "song Close"}));
  EXPECT_EQ(logOf([] {
              music::CloseSound();
              music::PlayWrong();
              music::PlaySong();
              music::SetSound(false);
            }),
            Log{});
  EXPECT_EQ(stored(), "False");
}

/// The window may close while a drop or a close processes pending events.
TEST_F(Music, AWindowThatClosesInTheMiddleOfASongIsNotTouchedAgain) {
  initOn();
  int draws = 0;
  const Replacement numbers(RandomNumbers::next, [&] { return ++draws, 0.9; });
  int depth = 0;
  QTimer::singleShot(0, [&] {
    depth = NestedLoop::depth();
    music::CloseSound();
  });
  music::PlaySong();
  EXPECT_EQ(depth, 1) << "preparing a correct tune processes pending events";
  EXPECT_EQ(log.back(), "song Close") << "nothing was opened after the close";
  EXPECT_EQ(draws, 2) << "a song and a correct tune; no wrong tune any more";

  bool processed = false;
  QTimer::singleShot(0, [&] {
    processed = true;
    music::CloseSound();
  });
  music::CloseSound();
  EXPECT_TRUE(processed);
}

}  // namespace
