// File dialogs in a sandbox. The program runs under mock_portal, on a bus of its own.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>

#include "platform/Dialogs.h"
#include "platform/Sandbox.h"

namespace {

Dialogs::FileDialog puzzles(const char* title) {
  Dialogs::FileDialog dialog;
  dialog.title = title;
  dialog.filterName = "Pentomino Puzzles (*.qzl)";
  dialog.defaultExtension = "qzl";
  dialog.overwritePrompt = true;
  dialog.folder = "/";
  dialog.fileName = "before";
  return dialog;
}

/// The toolkit asks at its start for the portal's version, and shows the portal's dialogs once it
/// knows. Answers come in the order of the questions.
void awaitVersion() {
  QDBusPendingCallWatcher question(
      QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
          "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
          "org.freedesktop.DBus.Properties", "Get")));
  QEventLoop loop;
  QObject::connect(&question, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
  loop.exec();
}

class Portal : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { awaitVersion(); }

 private:
  const Replacement<std::function<bool()>> inside{Sandbox::isAround, [] { return true; }};
};

TEST_F(Portal, IsAskedAndItsNamesAreTakenUnchanged) {
  auto dialog = puzzles("Save Puzzle");
  EXPECT_TRUE(dialog.ShowSave());
  EXPECT_EQ(dialog.fileName, "/granted/Mr. SaveFile");
  EXPECT_TRUE(dialog.ShowOpen());
  EXPECT_EQ(dialog.fileName, "/granted/Mr. OpenFile");
}

TEST_F(Portal, CancelledChangesNothing) {
  auto dialog = puzzles("Cancel");
  EXPECT_FALSE(dialog.ShowSave());
  EXPECT_EQ(dialog.fileName, "before");
}

}  // namespace
