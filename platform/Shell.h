#pragma once

#include <string>

/// Opens addresses with what the desktop has chosen for them.
namespace Shell {

/// Opens a web or a mail address ("https:", "http:", "mailto:") in the browser or the mail program.
///
/// Text:   raw, unencoded UTF-8; blanks and other characters are encoded here.
/// Errors: false when the text is no such address, or nothing on this machine opens it.
/// Waits:  at most a few seconds for the desktop's own opener to tell its result, painting but
///         taking no input; an opener that still runs by then has become the browser and counts as
///         success. Nothing it started ends with this program.
bool open(const std::string& address);

}  // namespace Shell
