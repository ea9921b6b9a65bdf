#include "services/basHTMLHelp.h"

#include <QShortcut>

#include "platform/Form.h"
#include "platform/HelpProcess.h"
#include "platform/Menus.h"
#include "platform/Program.h"

namespace basHTMLHelp {

void HtmlHelpA(QWidget* /*hwndCaller*/, const std::filesystem::path& pszFile, int uCommand,
               int dwData) {
  HelpProcess::show(pszFile, uCommand == HH_HELP_CONTEXT ? dwData : 0);
}

void ShowHelp(const Form& window, Topic topic) {
  const int command = topic == Topic::StartPage ? HH_DISPLAY_TOPIC : HH_HELP_CONTEXT;
  HtmlHelpA(window.Window(), Program::HelpFile, command, static_cast<int>(topic));
}

void ShowHelpOnF1(const Form& window, Topic topic) {
  auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), window.Window());
  QObject::connect(f1, &QShortcut::activated, f1, [&window, topic] { ShowHelp(window, topic); });
}

void AddHelpMenu(Form& window, Topic topic, const char* name, const char* caption,
                 const std::function<void()>& about) {
  QMenu* menu = Menus::addMenu(window.MenuBar(), "mnuHelp", "Help");
  Menus::addItem(menu, "mnuHelpContents", "Contents...",
                 [&window] { ShowHelp(window, Topic::StartPage); });
  Menus::addItem(menu, name, caption, [&window, topic] { ShowHelp(window, topic); });
  Menus::addSeparator(menu, "mnuHelpSep");
  Menus::addItem(menu, "mnuHelpAbout", "About...", about);
  ShowHelpOnF1(window, topic);
}

}  // namespace basHTMLHelp
