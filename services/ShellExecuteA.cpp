#include "platform/Shell.h"
#include "services/basKelvoEMail.h"
#include "services/basKelvoWinAPI.h"

namespace basKelvoWinAPI {

namespace {
constexpr int kStarted = 42;
constexpr int kNoProgramForIt = 31;
}  // namespace

Seam<std::function<int(QWidget*, const std::string&, const std::string&, const std::string&,
                       const std::string&, int)>>
    ShellExecuteA([](QWidget*, const std::string&, const std::string& lpFile, const std::string&,
                     const std::string&, int) {
      return Shell::open(lpFile, basKelvoEMail::ShowLateLinkError) ? kStarted : kNoProgramForIt;
    });

}  // namespace basKelvoWinAPI
