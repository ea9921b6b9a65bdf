#pragma once

#include <QWidget>
#include <filesystem>

/// The program's help: opens a compiled help file at its start page or at a numbered topic.
namespace basHTMLHelp {

inline constexpr int HH_DISPLAY_TOPIC = 0;  ///< data 0: the file's default page
inline constexpr int HH_HELP_CONTEXT = 15;  ///< data: the topic number

/// Hands the file to the help viewer, which goes its own way. Returns at once and tells nothing: a
/// missing file is the viewer's to report, a missing viewer ends the call silently.
void HtmlHelpA(QWidget* hwndCaller, const std::filesystem::path& pszFile, int uCommand, int dwData);

}  // namespace basHTMLHelp
