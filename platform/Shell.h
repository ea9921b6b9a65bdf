#pragma once

#include <functional>
#include <string>

/// Opens addresses with what the desktop has chosen for them.
namespace Shell {

/// Starts to open a web or a mail address ("https:", "http:", "mailto:") in the browser or the mail
/// program, and returns at once.
///
/// Text:   raw, unencoded UTF-8; blanks and other characters are encoded here.
/// Errors: false when the text is no such address, or nothing on this machine opens it. Where the
///         desktop's opener was started, but fails within half a minute, `failed` is called from
///         the event loop; one that ends badly after that was the browser itself.
/// Nothing it started ends with this program.
bool open(const std::string& address, const std::function<void()>& failed);

}  // namespace Shell
