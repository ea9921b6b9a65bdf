// The program is told to end by a signal, wherever it is. It must be out of its outermost loop
// before the watchdog, which would end this test.
#include "platform/EndSignals.h"

#include <unistd.h>

#include <QFileDialog>
#include <QTimer>
#include <csignal>
#include <vector>

#include "files/HeldSignals.h"
#include "files/SafeFile.h"
#include "tests/files/TestDisk.h"
#include "tests/play/PlayFixture.h"

namespace {

/// Counts the message boxes that are shown from its making on.
class Questions : public QObject {
 public:
  Questions() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show && qobject_cast<QMessageBox*>(object)) ++count;
    return false;
  }
  int count = 0;
};

class Ending : public PlayFixture {
 protected:
  struct Step {
    std::function<bool()> when;
    std::function<void()> then;
  };

  /// Starts the program and takes one step after the other from its own event loop, each once its
  /// time has come; the last one sends the signal. The program must end by it.
  void endBy(int signal, std::vector<Step> steps) {
    const EndSignals onSignal;
    program_->start();
    QTimer clock;
    std::size_t next = 0;
    QObject::connect(&clock, &QTimer::timeout, [&] {
      if (next < steps.size() && steps[next].when())
        QTimer::singleShot(0, qApp, steps[next++].then);
    });
    clock.start(0);
    EXPECT_EQ(QApplication::exec(), 128 + signal);
    EXPECT_EQ(next, steps.size());
    program_->close();
    finishFirstLevelWork();
    EXPECT_EQ(Form::Count(), 0);
    EXPECT_FALSE(QApplication::activeModalWidget());
  }

  Step atSplash(const std::function<void()>& then) {
    return {[this] { return splash().Loaded(); }, then};
  }
  Step inEditor(const std::function<void()>& then) {
    return {[this] { return edit().Loaded() && chooser().fEdit; }, then};
  }
  std::function<void()> toEditor() {
    return [this] { QTest::mouseClick(control(splash(), "imgEdit"), Qt::LeftButton); };
  }
  std::function<void()> fromMenu(const char* item) {
    return [=, this] { edit().Window()->findChild<QAction*>(item)->trigger(); };
  }
  void takePiece() {
    QTest::mouseClick(control(edit(), "cmdPento8"), Qt::LeftButton);
    EXPECT_TRUE(edit().Grid->FloatingPento());
  }
  template <class Dialog>
  static bool isOpen() {
    return qobject_cast<Dialog*>(QApplication::activeModalWidget()) != nullptr;
  }
  std::function<void()> sending(int signal) {
    return [=, this] {
      questions_.emplace();
      ::raise(signal);
    };
  }

  std::optional<Questions> questions_;  ///< since the signal
};

TEST_F(Ending, FromTheSplashWindow) {
  endBy(SIGHUP, {atSplash(sending(SIGHUP))});
}

TEST_F(Ending, FromTheChooser) {
  endBy(SIGINT, {atSplash([this] { QTest::keyClick(splash().Window(), Qt::Key_Return); }),
                 {[this] { return chooser().Loaded(); }, sending(SIGINT)}});
}

TEST_F(Ending, WithAPieceInTheAir) {
  endBy(SIGTERM, {atSplash(toEditor()),
                  inEditor([this] { takePiece(); }),
                  {[] { return true; }, sending(SIGTERM)}});
}

TEST_F(Ending, WithChangesAndADialogOpenWithoutAQuestion) {
  for (const auto& [item, open] : {std::pair{"mnuFileClose", &isOpen<QMessageBox>},
                                   std::pair{"mnuFileSaveAs", &isOpen<QFileDialog>}}) {
    SCOPED_TRACE(item);
    basStartup::fSplashDone = false;
    endBy(SIGTERM, {atSplash(toEditor()),
                    inEditor([this] { edit().fFileChanged = true; }),
                    {[] { return true; }, fromMenu(item)},
                    {open, sending(SIGTERM)}});
    EXPECT_EQ(questions_->count, 0);
    EXPECT_TRUE(fs::is_empty(folder_ / "User"));
  }
}

TEST_F(Ending, ASaveThatHasBegunIsFinished) {
  const fs::path file = folder_ / "User" / "a.qzl";
  TestDisk disk;
  disk.before = [&, sent = false](int, const std::string& call) mutable {
    if (call == "write" && !std::exchange(sent, true)) sending(SIGTERM)();
    return 0;
  };
  endBy(SIGTERM, {atSplash(toEditor()), inEditor([&] {
                    basTiles::CurrentFileName = file;
                    fromMenu("mnuFileSave")();
                  })});
  EXPECT_EQ(bytesOf(file).size(), 435u);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "User"), {}), 1);
  EXPECT_EQ(questions_->count, 0);
  basTiles::CurrentFileName.clear();
}

TEST(EndSignals, WhoLingersEndsAsItIsButForASave) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto linger = [] {
    for (;;) ::pause();
  };
  const auto ended = testing::ExitedWithCode(128 + SIGTERM);
  EXPECT_EXIT(
      {
        const EndSignals onSignal;
        ::raise(SIGTERM);
        linger();
      },
      ended, "");
  EXPECT_EXIT(
      {
        const EndSignals onSignal;
        ::raise(SIGTERM);
        std::optional<HeldSignals> saving(std::in_place);
        ::pause();  // until the watchdog's time has come
        std::fputs("saved", stderr);
        saving.reset();
        linger();
      },
      ended, "saved");
}

}  // namespace
