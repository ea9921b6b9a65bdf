// How long windows live, and when the program ends.
#include "platform/Form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include "platform/Dialogs.h"
#include "platform/LargeText.h"
#include "platform/PendingEvents.h"
#include "platform/Twips.h"

namespace {

class PlainForm : public Form {
 public:
  PlainForm() : Form(design()) {}

  std::function<void()> Load_ = [] {};
  std::function<void()> Activate_ = [] {};
  std::function<void()> Click = [] {};
  bool refuses = false;
  int loads = 0, unloads = 0, activations = 0;
  QPointer<QPushButton> button;

 protected:
  void BuildControls() override {
    button = new QPushButton("Go", Client());
    QObject::connect(button, &QPushButton::clicked, button, [this] { Click(); });
  }
  void Form_Load() override { ++loads, Load_(); }
  void Form_Activate() override { ++activations, Activate_(); }
  void Form_Unload(bool& Cancel) override {
    ++unloads;
    Cancel = refuses;
  }

 private:
  static Design design() {
    Design d;
    d.title = "Plain";
    d.client = QSizeF(3000, 2000);
    return d;
  }
};

class FormTest : public ::testing::Test {
 protected:
  /// Runs the program's loop with a first step in it, and gives its exit code.
  static int run(std::function<void()> first) {
    QTimer::singleShot(0, qApp, std::move(first));
    const int code = QCoreApplication::exec();
    finishFirstLevelWork();
    return code;
  }

  static void soon(std::function<void()> work) { QTimer::singleShot(0, qApp, std::move(work)); }

  PlainForm one_, two_;
};

TEST_F(FormTest, ALargeDesktopFontEnlargesAWindowAsFarAsItFits) {
  const QFont usual = QApplication::font();
  const auto loadWith = [&](double points) {
    QFont font = usual;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    one_.Load();
  };
  run([&] {
    for (const auto& [points, factor] :
         {std::pair{8.0, 1.0}, {11.0, 1.0}, {16.5, 1.5}, {22.0, 2.0}}) {
      loadWith(points);
      EXPECT_EQ(Twips::toPixels(QSizeF(1500, 3000), *one_.button), QSize(100, 200) * factor);
      EXPECT_EQ(Form::ControlFont(*one_.button).pointSizeF(), 8.25 * factor);
      one_.Unload();
    }
    loadWith(300);
    const QSize size = Twips::toPixels(QSizeF(3000, 2000), *one_.Window());
    const QSize room = one_.Window()->screen()->availableSize();
    EXPECT_EQ(size, size.boundedTo(room));
    EXPECT_GT(size.width(), room.width() * 0.9);
    one_.Unload();
  });
  QApplication::setFont(usual);
}

TEST_F(FormTest, TheProgramEndsWithCodeZeroWhenTheLastWindowCloses) {
  bool secondClosed = false;
  const int code = run([&] {
    one_.Show();
    two_.Show();
    EXPECT_EQ(Form::Count(), 2);
    one_.Window()->close();
    EXPECT_EQ(Form::Count(), 1);
    EXPECT_FALSE(one_.Loaded());
    QTimer::singleShot(20, qApp, [&] {
      secondClosed = true;
      two_.Window()->close();
    });
  });
  EXPECT_EQ(code, 0);
  EXPECT_TRUE(secondClosed) << "ended before its last window";
}

TEST_F(FormTest, AWindowThatFollowsAnotherKeepsTheProgramAlive) {
  bool ended = false, alive = false;
  const int code = run([&] {
    one_.Show();
    one_.Unload();
    processPendingEvents();  // a check for the last window in here must not end the program
    two_.Show();
    QTimer::singleShot(30, qApp, [&] {
      alive = !ended;
      two_.Unload();
    });
  });
  ended = true;
  EXPECT_EQ(code, 0);
  EXPECT_TRUE(alive);
}

TEST_F(FormTest, AWindowClosedInsideItsOwnHandlersDialogLivesUntilTheHandlerIsDone) {
  bool handlerWentOn = false;
  one_.Click = [&] {
    soon([&] {
      one_.Unload();
      EXPECT_EQ(Form::Count(), 0);
      EXPECT_TRUE(one_.Unload()) << "a second unload is harmless";
      soon([] { QApplication::activeModalWidget()->close(); });
    });
    const QPointer<QPushButton> button = one_.button;
    Dialogs::message("Wait", Dialogs::Icon::None);
    ASSERT_TRUE(button) << "deleted below its own handler";
    EXPECT_TRUE(Form::Unloaded(button));
    EXPECT_FALSE(button->isVisible());
    handlerWentOn = true;
  };
  EXPECT_EQ(run([&] {
              one_.Show();
              one_.button->click();
            }),
            0);
  EXPECT_TRUE(handlerWentOn);
  EXPECT_EQ(one_.unloads, 1);
  EXPECT_FALSE(one_.button) << "its controls go with the window";
}

TEST_F(FormTest, AModalWindowReturnsWhenItClosesAndMayCloseItsOpener) {
  bool returned = false;
  run([&] {
    one_.Show();
    soon([&] {
      EXPECT_FALSE(returned);
      EXPECT_TRUE(two_.Loaded());
      one_.Unload();
      two_.Unload();
      EXPECT_FALSE(returned) << "not while this handler runs";
    });
    two_.ShowModal(&one_);
    returned = true;
    EXPECT_FALSE(two_.Loaded());
  });
  EXPECT_TRUE(returned);
}

TEST_F(FormTest, AFormThatRefusesStaysOpenAndOneShownAgainLoadsAnew) {
  run([&] {
    one_.refuses = true;
    one_.Show();
    EXPECT_FALSE(one_.Unload());
    one_.Window()->close();
    EXPECT_TRUE(one_.Loaded());
    EXPECT_TRUE(one_.Window()->isVisible());
    EXPECT_EQ(Form::Count(), 1);
    one_.refuses = false;
    EXPECT_TRUE(one_.Unload());
    one_.Show();
    EXPECT_EQ(one_.loads, 2);
    one_.Unload();
  });
  EXPECT_EQ(one_.unloads, 4);
}

TEST_F(FormTest, AWindowClosedWhileItLoadsIsNotShown) {
  run([&] {
    two_.Show();
    one_.Load_ = [&] { one_.Unload(); };
    one_.Show();
    EXPECT_FALSE(one_.Loaded());
    EXPECT_EQ(Form::Count(), 1);
    two_.Unload();
  });
}

TEST_F(FormTest, ActivationIsPostedAndNotEnteredTwiceWhenItLetsEventsRun) {
  run([&] {
    one_.Activate_ = [&] {
      QEvent again(QEvent::WindowActivate);
      QCoreApplication::sendEvent(one_.Window(), &again);
      processPendingEvents();
    };
    one_.Show();
    EXPECT_EQ(one_.activations, 0) << "inside the showing";
    EXPECT_TRUE(QTest::qWaitFor([&] { return one_.activations > 0; }));
    EXPECT_EQ(one_.activations, 1);
    one_.Unload();
  });
}

}  // namespace
