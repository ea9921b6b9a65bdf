// The links and the help calls: what the shell and the viewer are handed, and what a refusal shows.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <vector>

#include "platform/Form.h"
#include "platform/HelpProcess.h"
#include "platform/Program.h"
#include "services/basHTMLHelp.h"
#include "services/basKelvoEMail.h"
#include "services/basKelvoWinAPI.h"

using namespace basKelvoEMail;

namespace {

struct Call {
  std::string operation, file, parameters, folder;
  int show;
  bool operator==(const Call&) const = default;
};

/// A shell that answers each call with the same result, and the link messages that followed.
class LinksTest : public ::testing::Test {
 protected:
  void answerNextMessage() {
    QTimer::singleShot(0, &context, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return answerNextMessage();
      EXPECT_EQ(box->icon(), QMessageBox::Warning);
      EXPECT_EQ(box->windowTitle(), "Quinzolith");
      EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
      messages.push_back(box->text().toStdString());
      box->button(QMessageBox::Ok)->click();
    });
  }

  QObject context;
  int result = 33;
  std::vector<Call> calls;
  std::vector<std::string> messages;
  using Shell = std::function<int(QWidget*, const std::string&, const std::string&,
                                  const std::string&, const std::string&, int)>;
  Replacement<Shell> shell{
      basKelvoWinAPI::ShellExecuteA,
      [this](QWidget* hwnd, const std::string& operation, const std::string& file,
             const std::string& parameters, const std::string& folder, int show) {
        EXPECT_EQ(hwnd, nullptr);
        calls.push_back({operation, file, parameters, folder, show});
        if (result <= 32) answerNextMessage();
        return result;
      }};
};

TEST_F(LinksTest, TheShellGetsRawTexts) {
  VisitWebSite();
  SendSupportMail();
  MailTo("MailTo:a b@c.example", "two words & more", "100 % <raw>");
  MailTo("someone@c.example", "", "only a body");
  MailTo("mail", "", "");
  const std::vector<Call> expected{
      {"open", kWebSite, "", "", 1},
      {"open", std::string("mailto:") + kSupportAddress + "?subject=Quinzolith 1.1.7", "", "", 5},
      {"open", "MailTo:a b@c.example?subject=two words & more&body=100 % <raw>", "", "", 5},
      {"open", "mailto:someone@c.example?body=only a body", "", "", 5},
      {"open", "mailto:mail", "", "", 5}};
  EXPECT_EQ(calls, expected);
  EXPECT_TRUE(messages.empty());
}

TEST_F(LinksTest, AResultUpTo32ShowsTheLinkMessage) {
  for (const int refusal : {32, 2, 0, -1}) {
    result = refusal;
    VisitWebSite();
    SendSupportMail();
  }
  ASSERT_EQ(messages.size(), 8U);
  for (const std::string& message : messages) EXPECT_EQ(message, messages.front());
  EXPECT_NE(messages.front().find("web at: \n      https://www.quinzolith.example.\n"),
            std::string::npos);
}

TEST_F(LinksTest, ALateFailureIsShownOverAWindowOrNotAtAll) {
  ShowLateLinkError();  // returns: the program ends, and no box may keep it
  class Window : public Form {
   public:
    Window() : Form({}) {}
    void BuildControls() override {}
  } window;
  window.Show();
  answerNextMessage();
  ShowLateLinkError();
  EXPECT_EQ(messages.size(), 1U);
}

TEST(HtmlHelp, TheViewerGetsTheFileAndATopicOnlyWhenAskedForOne) {
  std::vector<QStringList> started;
  const Replacement start(HelpProcess::Start,
                          [&](const QString& program, const QStringList& arguments) {
                            started.push_back(QStringList{program} + arguments);
                            return false;  // a viewer that cannot be started makes no noise
                          });
  const Replacement folder(Program::programFolder, [] { return "/games/my folder"; });
  using namespace basHTMLHelp;
  HtmlHelpA(nullptr, "/games/my folder/Quinzolith.chm", HH_DISPLAY_TOPIC, 0);
  HtmlHelpA(nullptr, "/games/my folder/Quinzolith.chm", HH_HELP_CONTEXT, 1200);
  const QString viewer = "/games/my folder/quinzolith-help";
  const QString file = "/games/my folder/Quinzolith.chm";
  EXPECT_EQ(started, (std::vector<QStringList>{{viewer, file}, {viewer, file, "1200"}}));
}

}  // namespace
