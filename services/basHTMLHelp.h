#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>

class Form;

/// The program's help: opens a compiled help file at its start page or at a numbered topic.
namespace basHTMLHelp {

inline constexpr int HH_DISPLAY_TOPIC = 0;  ///< data 0: the file's default page
inline constexpr int HH_HELP_CONTEXT = 15;  ///< data: the topic number

/// Hands the file to the help viewer, which goes its own way. Returns at once and tells nothing: a
/// missing file is the viewer's to report, a missing viewer ends the call silently.
void HtmlHelpA(QWidget* hwndCaller, const std::filesystem::path& pszFile, int uCommand, int dwData);

/// What the windows ask for, by the numbers that help/Quinzolith.hhp gives its pages.
enum class Topic { StartPage = 0, Splash = 1000, Chooser = 1100, Play = 1200, Editor = 1300 };

/// Every help request comes here, be it a menu item, a button or the F1 key: calls HtmlHelpA
/// for a loaded window with the program's help file.
void ShowHelp(const Form& window, Topic topic);

/// Binds the F1 key of a window to its topic; call while its controls are built.
void ShowHelpOnF1(const Form& window, Topic topic);

/// Builds the Help menu of a window, and binds F1: the start page, the window's topic as an item of
/// that name and caption, and `about`.
void AddHelpMenu(Form& window, Topic topic, const char* name, const char* caption,
                 const std::function<void()>& about);

}  // namespace basHTMLHelp
