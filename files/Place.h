#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "files/OpenFile.h"

/// Where a file stands once all links to it have been followed: a folder that is held open, so that
/// nobody can exchange it any more, and a name in it.
///
/// Links, in the file's place and on the way there, are followed only where both the link and the
/// folder in which it lies belong to this user or to the system's administrator. Another user could
/// have planted the link, or moved one of ours there.
struct Place {
  OpenFile folder;  ///< opened as a place only (O_PATH)
  std::string name;
  std::optional<struct stat> status;  ///< of what has the name now, which is no link
};

/// Errors: a link of another user, too many links, a folder that is not there, no file's name.
Place placeOf(const std::filesystem::path& file);

/// True for this user and the administrator, to whom the machine belongs anyway.
bool isTrusted(uid_t owner);
