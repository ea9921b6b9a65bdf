#include "services/basKelvoEMail.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "platform/Dialogs.h"
#include "platform/Form.h"
#include "platform/Program.h"
#include "services/basKelvoWinAPI.h"

namespace basKelvoEMail {

namespace {

constexpr int kShowNormal = 1;
constexpr int kShow = 5;
constexpr int kLastFailure = 32;
constexpr std::string_view kMailPrefix = "mailto:";
constexpr std::array<const char*, 2> kPostalAddress{"12 Five Squares Lane",
                                                    "Pentomino Bay, Nowhereland"};

void open(const std::string& link, int showCommand) {
  if (basKelvoWinAPI::ShellExecuteA(nullptr, "open", link, "", "", showCommand) <= kLastFailure)
    ShowLinkError();
}

bool hasMailPrefix(const std::string& address) {
  return address.size() >= kMailPrefix.size() &&
         std::equal(kMailPrefix.begin(), kMailPrefix.end(), address.begin(), [](char p, char a) {
           return p == std::tolower(static_cast<unsigned char>(a));
         });
}

}  // namespace

void VisitWebSite() {
  open(kWebSite, kShowNormal);
}

void SendSupportMail() {
  MailTo(kSupportAddress, std::string(Program::kTitle) + " " + Program::versionText(), "");
}

void MailTo(const std::string& Address, const std::string& Subject, const std::string& Body) {
  std::string link = hasMailPrefix(Address) ? Address : std::string(kMailPrefix) + Address;
  if (!Subject.empty()) link += "?subject=" + Subject;
  if (!Body.empty()) link += (Subject.empty() ? "?" : "&") + ("body=" + Body);
  open(link, kShow);
}

void ShowLinkError() {
  const std::string indent(6, ' ');
  const std::string end = "\r\n";
  Dialogs::message(std::string(Program::kTitle) + " was unable to perform the requested function." +
                       end + "You can contact Kelvo Software on the web at: " + end + indent +
                       kWebSite + "." + end + end + "Or you can write to us at:" + end + indent +
                       "Kelvo Software" + end + indent + kPostalAddress[0] + end + indent +
                       kPostalAddress[1],
                   Dialogs::Icon::Exclamation);
}

void ShowLateLinkError() {
  if (topmostForm() || QApplication::activeModalWidget()) ShowLinkError();
}

}  // namespace basKelvoEMail
