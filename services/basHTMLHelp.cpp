#include "services/basHTMLHelp.h"

#include "platform/HelpProcess.h"

namespace basHTMLHelp {

void HtmlHelpA(QWidget* /*hwndCaller*/, const std::filesystem::path& pszFile, int uCommand,
               int dwData) {
  HelpProcess::show(pszFile, uCommand == HH_HELP_CONTEXT ? dwData : 0);
}

}  // namespace basHTMLHelp
