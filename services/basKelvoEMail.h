#pragma once

#include <string>

/// The links to the maker's web site and support mail, opened through the shell.
namespace basKelvoEMail {

/// The maker's addresses. They lie under a domain that is reserved for examples.
inline constexpr const char* kWebSite = "https://www.quinzolith.example";
inline constexpr const char* kSupportAddress = "support@quinzolith.example";

/// Opens the maker's web site in the browser, or shows the link message.
void VisitWebSite();

/// Starts a mail to the maker's support with the program's title and version as its subject.
void SendSupportMail();

/// Starts a mail in the mail program, or shows the link message. The address, with or without
/// "mailto:" in front, is handed to the shell with subject and body just as they are: nothing is
/// encoded. An empty subject or body is left out.
void MailTo(const std::string& Address, const std::string& Subject, const std::string& Body);

/// Says that the shell could not open a link, and how else to reach the maker.
void ShowLinkError();

/// The same for an opener that was started and failed a while later: over the window that is active
/// by then, or not at all if none is left.
void ShowLateLinkError();

}  // namespace basKelvoEMail
